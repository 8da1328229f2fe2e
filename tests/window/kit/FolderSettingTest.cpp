// FolderSettingTest.cpp - the last folder of each kind of data, in the profile
#include "support/WindowTest.h"
#include "tavkit/filedlg/FolderSetting.h"

#include <gmock/gmock.h>

namespace
{

using tavkit::ReadFldrSttng;
using tavkit::WriteFldrSttng;
using testing::StrEq;

constexpr char kKey[] = "TestDir";

class FolderSetting : public support::WindowTest
{
protected:
    void TearDown() override
    {
        AfxGetApp()->WriteProfileString("Settings", nullptr, nullptr); // the whole section
        WindowTest::TearDown();
    }

    static CString InProfile() { return AfxGetApp()->GetProfileString("Settings", kKey, "(nothing)"); }
};

TEST_F(FolderSetting, ReadsWhatWasWrittenAndTheDefaultBefore)
{
    EXPECT_THAT(ReadFldrSttng(kKey, "."), StrEq("."));
    EXPECT_THAT(ReadFldrSttng(kKey, nullptr), StrEq(""));
    WriteFldrSttng(kKey, "C:\\a\\");
    EXPECT_THAT(InProfile(), StrEq("C:\\a\\"));
    EXPECT_THAT(ReadFldrSttng(kKey, "."), StrEq("C:\\a\\"));
    EXPECT_THAT(ReadFldrSttng("Other", "dflt"), StrEq("dflt"));
}

TEST_F(FolderSetting, ADotAndNothingAreNeverWritten)
{
    WriteFldrSttng(kKey, ".");
    WriteFldrSttng(kKey, "");
    WriteFldrSttng(kKey, nullptr);
    EXPECT_THAT(InProfile(), StrEq("(nothing)"));
    WriteFldrSttng(kKey, "C:\\a");
    WriteFldrSttng(kKey, ".");
    EXPECT_THAT(InProfile(), StrEq("C:\\a"));
    WriteFldrSttng(kKey, ".\\sub");
    EXPECT_THAT(InProfile(), StrEq(".\\sub"));
}

TEST_F(FolderSetting, WithoutAKeyNothingIsReadOrWritten)
{
    WriteFldrSttng("", "C:\\a");
    WriteFldrSttng(nullptr, "C:\\a");
    EXPECT_THAT(ReadFldrSttng("", "dflt"), StrEq("dflt"));
    EXPECT_THAT(ReadFldrSttng(nullptr, "dflt"), StrEq("dflt"));
}

TEST_F(FolderSetting, AFolderOfAnyLengthComesBackWhole)
{
    const CString folder("C:\\" + CString('x', 5000));
    WriteFldrSttng(kKey, folder);
    EXPECT_THAT(ReadFldrSttng(kKey, "."), StrEq(static_cast<LPCTSTR>(folder)));
}

} // namespace
