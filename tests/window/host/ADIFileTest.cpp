// ADIFileTest.cpp - tables that are written to files
#include "tavkit/frame/services/ADIFile.h"
#include "tests/support/TempFolder.h"

#include <gmock/gmock.h>

#include <string>

namespace
{

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StrEq;

class WrittenFile : public testing::Test
{
protected:
    /// Writes one row; the results of the operations aren't looked at.
    static void Write(std::string const& path, char const* id)
    {
        ADIFile file(path.c_str(), id, fmtWrite, nullptr, "");
        file.InitTable(2, 3);
        file.AddCol("Id", adiInt);
        file.AddCol("Area", adiDouble);
        file.AddCol("Name", adiString);
        file.AddRow();
        file.WriteInt(7);
        file.WriteDouble(0.5);
        file.WriteString("a,b");
        file.Finish();
    }

    support::TempFolder m_temp;
};

} // namespace

TEST_F(WrittenFile, IsWrittenInTheFormatThatIsNamed)
{
    Write(m_temp.Path("a.x"), "CSV");
    EXPECT_EQ(m_temp.Read("a.x"), "Id,Area,Name\r\n7,0.5,\"a,b\"\r\n");
    Write(m_temp.Path("a.x"), "TCSV");
    EXPECT_EQ(m_temp.Read("a.x"), "Id,7\r\nArea,0.5\r\nName,\"a,b\"\r\n");
    Write(m_temp.Path("a.x"), "TXT");
    EXPECT_EQ(m_temp.Read("a.x"), "Id\tArea\tName\r\n7\t0.5\ta,b\r\n");
    Write(m_temp.Path("a.x"), "DBASE");
    EXPECT_EQ(m_temp.Read("a.x").front(), '\x03');
    EXPECT_THAT(m_temp.Names(), ElementsAre("a.x")) << "no temporary file stays";
}

TEST_F(WrittenFile, WithoutAFormatTheExtensionTells)
{
    for (char const* id : {static_cast<char const*>(nullptr), ""})
    {
        Write(m_temp.Path("a.dbf"), id);
        EXPECT_EQ(m_temp.Read("a.dbf").front(), '\x03');
        Write(m_temp.Path("a.tsv"), id);
        EXPECT_EQ(m_temp.Read("a.tsv").substr(0, 3), "Id\t");
    }
    Write(m_temp.Path("a.exe"), nullptr);
    Write(m_temp.Path("b.csv"), "HTML");
    EXPECT_THAT(m_temp.Names(), testing::UnorderedElementsAre("a.dbf", "a.tsv"));
}

TEST_F(WrittenFile, OptionsAreNoPartOfTheName)
{
    Write(m_temp.Path("a.csv?x=1"), "CSV");
    EXPECT_THAT(m_temp.Names(), ElementsAre("a.csv"));
}

TEST_F(WrittenFile, TheOldFileStaysUntilTheNewOneIsWhole)
{
    const std::string path = m_temp.Write("a.csv", "old");
    {
        ADIFile file(path.c_str(), "CSV", fmtWrite, nullptr, "");
        EXPECT_TRUE(file.InitTable(1, 1));
        EXPECT_TRUE(file.AddCol("A", adiInt));
        file.AddRow();
        EXPECT_TRUE(file.WriteInt(1));
        EXPECT_EQ(m_temp.Read("a.csv"), "old");
    }
    EXPECT_EQ(m_temp.Read("a.csv"), "old") << "a table that wasn't finished isn't written";
    EXPECT_THAT(m_temp.Names(), ElementsAre("a.csv"));
}

TEST_F(WrittenFile, AFileThatCannotBeReplacedStaysWhole)
{
    const std::string path = m_temp.Write("a.csv", "old");
    const HANDLE held = ::CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(held, INVALID_HANDLE_VALUE);
    Write(path, "CSV");
    ::CloseHandle(held);
    EXPECT_EQ(m_temp.Read("a.csv"), "old");
    EXPECT_THAT(m_temp.Names(), ElementsAre("a.csv"));
    Write(m_temp.Path("none\\a.csv"), "CSV");
    Write("", "CSV");
    EXPECT_THAT(m_temp.Names(), ElementsAre("a.csv"));
}

TEST_F(WrittenFile, CallsOutOfPlaceGiveFalse)
{
    ADIFile file(m_temp.Path("a.csv").c_str(), "CSV", fmtWrite, nullptr, "");
    EXPECT_FALSE(file.AddCol("A", adiInt));
    EXPECT_FALSE(file.WriteInt(1));
    file.AddRow();
    file.Finish();
    EXPECT_FALSE(file.InitTable(1, 0));
    EXPECT_FALSE(file.InitTable(1, -1));
    EXPECT_TRUE(file.InitTable(-5, 1));
    EXPECT_FALSE(file.WriteInt(1)) << "no row was begun";
    EXPECT_FALSE(file.AddCol(nullptr, adiInt));
    EXPECT_TRUE(file.AddCol("A", adiInt));
    EXPECT_FALSE(file.AddCol("B", adiInt)) << "one column was announced";
    EXPECT_EQ(file.GetNumCol(0), 1);
    EXPECT_THAT(file.GetColName(0, 0), StrEq("A"));
    EXPECT_THAT(file.GetColName(1, 0), StrEq(""));
    EXPECT_EQ(file.GetColType(0, 0), adiInt);
    file.AddRow();
    EXPECT_TRUE(file.WriteString(nullptr));
    EXPECT_FALSE(file.WriteDouble(1)) << "the row is full";
    EXPECT_FALSE(file.ReadRow(0, 0));
    file.Finish();
    EXPECT_EQ(m_temp.Read("a.csv"), "A\r\n\"\"\r\n");
    EXPECT_FALSE(file.InitTable(1, 1)) << "the table is finished";
    file.Finish();
    EXPECT_EQ(m_temp.Read("a.csv"), "A\r\n\"\"\r\n");
}

TEST_F(WrittenFile, CanBeReadAsWell)
{
    Write(m_temp.Path("a.csv"), "CSV");
    ADIFile file(m_temp.Path("a.csv").c_str(), "CSV", fmtRead, nullptr, "");
    EXPECT_EQ(file.GetNumCol(0), 3);
    EXPECT_THAT(file.GetColName(2, 0), StrEq("Name"));
    EXPECT_EQ(file.GetColType(1, 0), adiDouble);
    ASSERT_TRUE(file.ReadRow(0, 0));
    EXPECT_THAT(file.GetCellText(0, 2, 0), StrEq("a,b"));
    EXPECT_FALSE(file.InitTable(1, 1));
    file.Finish();
    EXPECT_EQ(ADIFile(m_temp.Path("none.csv").c_str(), "CSV", fmtRead, nullptr, "").GetNumCol(0), 0);
}
