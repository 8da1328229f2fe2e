// LogicMain.cpp - main program of the tests without windows, natively and for Windows

#include "FinishedMark.h"

#include <gmock/gmock.h>

int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    return support::Finish(RUN_ALL_TESTS());
}
