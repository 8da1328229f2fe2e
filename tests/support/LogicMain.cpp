// LogicMain.cpp - main program of the tests without windows, natively and for Windows

#include "automation/FinishedMark.h"

#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    return automation::Finish(RUN_ALL_TESTS());
}
