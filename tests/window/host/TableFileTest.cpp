// TableFileTest.cpp - real table files through OpenAttrData, and files that are none
#include <windows.h>

#include <cstdlib>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "tavkit/frame/services/OpenAttrData.h"
#include "tests/support/DbaseWriter.h"
#include "tests/support/TempFolder.h"

namespace
{

using support::DbaseWriter;
using support::TempFolder;
using testing::ElementsAre;
using testing::IsNull;
using testing::NotNull;
using testing::StrEq;

std::unique_ptr<IAttrData> Open(const std::string& moniker, char const* frmtId = nullptr, DError* error = nullptr)
{
    return OpenAttrData(BDIMoniker(moniker.c_str(), nullptr), frmtId, error);
}

std::string Sample(const std::string& name)
{
    const char* folder = std::getenv("TAVKIT_SAMPLES");
    return std::string(folder != nullptr ? folder : "samples") + "\\" + name;
}

std::vector<std::string> Names(IAttrData& table)
{
    std::vector<std::string> names;
    for (int col = 0; col < table.GetNumCol(0); ++col)
    {
        names.emplace_back(table.GetColName(col, 0));
    }
    return names;
}

int CountRows(IAttrData& table)
{
    int rows = 0;
    while (table.ReadRow(rows, 0))
    {
        ++rows;
    }
    return rows;
}

/// The cause of the failure; "" and a failed test if the file opens.
std::string CauseOf(const std::string& path, char const* frmtId = nullptr)
{
    DError error;
    EXPECT_THAT(Open(path, frmtId, &error), IsNull()) << path;
    EXPECT_THAT(Open(path, frmtId), IsNull()) << "the holder of the cause may be missing";
    return error.GetErrorText().c_str();
}

} // namespace

TEST(TableFile, SampleOfObjectsReadsFromItsFirstToItsLastRow)
{
    const auto table = Open(Sample("deepfield_objects.csv"));
    ASSERT_THAT(table, NotNull());
    EXPECT_THAT(Names(*table), ElementsAre("Nr", "X", "Y", "Area", "Mean", "Peak", "Eccentricity", "Class"));
    EXPECT_EQ(table->GetColType(0, 0), adiInt);
    EXPECT_EQ(table->GetColType(1, 0), adiDouble);
    EXPECT_EQ(table->GetColType(7, 0), adiString);
    ASSERT_TRUE(table->ReadRow(6, 0));
    EXPECT_THAT(table->GetCellText(6, 7, 0), StrEq("Star or round galaxy"));
    int rows = 7;
    while (table->ReadRow(rows, 0))
    {
        ++rows;
    }
    EXPECT_EQ(rows, 2350);
}

TEST(TableFile, ExtensionChoosesTheFormat)
{
    const TempFolder folder;
    const auto csv = Open(folder.Write("a.csv", "A\tX,B\n1,2\n"));
    ASSERT_THAT(csv, NotNull());
    EXPECT_THAT(Names(*csv), ElementsAre("A\tX", "B"));
    const auto text = Open(folder.Write("a.TXT", "A\tX,B\n1\t2\n"));
    ASSERT_THAT(text, NotNull());
    EXPECT_THAT(Names(*text), ElementsAre("A", "X,B"));
    const auto dbase = Open(folder.Write("a.dbf", DbaseWriter({{"N", 'N', 2}}).Add(" 7").Bytes()));
    ASSERT_THAT(dbase, NotNull());
    ASSERT_TRUE(dbase->ReadRow(0, 0));
    EXPECT_THAT(dbase->GetCellText(0, 0, 0), StrEq("7"));
}

TEST(TableFile, IdentifierGoesBeforeTheExtension)
{
    const TempFolder folder;
    const std::string path = folder.Write("a.csv", "A,1,2\nB,3,4\n");
    const auto lying = Open(path, "TCSV");
    ASSERT_THAT(lying, NotNull());
    EXPECT_THAT(Names(*lying), ElementsAre("A", "B"));
    const auto standing = Open(path, "");
    ASSERT_THAT(standing, NotNull());
    EXPECT_THAT(Names(*standing), ElementsAre("A", "1", "2"));
    EXPECT_EQ(CauseOf(path, "XLS"), "The file is no table of a known format.");
}

TEST(TableFile, ContentChoosesWhereTheExtensionTellsNothing)
{
    const TempFolder folder;
    const auto csv = Open(folder.Write("table", "A,B\n1,2\n"));
    ASSERT_THAT(csv, NotNull());
    EXPECT_THAT(Names(*csv), ElementsAre("A", "B"));
    const auto dbase = Open(folder.Write("table.dat", DbaseWriter({{"N", 'N', 2}}).Bytes()));
    ASSERT_THAT(dbase, NotNull());
    EXPECT_THAT(Names(*dbase), ElementsAre("N"));
}

TEST(TableFile, OptionsBehindTheNameArePassedOver)
{
    const TempFolder folder;
    EXPECT_THAT(Open(folder.Write("a.csv", "A,B\n1,2\n") + "?sheet=1"), NotNull());
}

TEST(TableFile, WhatIsNoTableFailsWithItsCause)
{
    const TempFolder folder;
    const std::string missing = "The file is missing or can't be read.";
    const std::string noText = "The file is no text, or its line of names is damaged.";
    const std::string noDbase = "The file is no dBase table, or its header is damaged.";
    EXPECT_EQ(CauseOf(folder.Path("none.csv")), missing);
    EXPECT_EQ(CauseOf(folder.MakeFolder("folder.csv")), missing);
    EXPECT_EQ(CauseOf(""), missing);
    EXPECT_EQ(CauseOf("NUL"), missing) << "a device";
    EXPECT_EQ(CauseOf(folder.Write("empty.csv", "")), noText);
    EXPECT_EQ(CauseOf(folder.Write("cut.csv", "A,\"B")), noText);
    EXPECT_EQ(CauseOf(folder.Write("cut.dbf", DbaseWriter({{"N", 'N', 2}}).Bytes().substr(0, 40))), noDbase);
    EXPECT_EQ(CauseOf(folder.Write("junk", std::string("\x7F"
                                                       "ELF\x02\x01\x01\0\0",
                                                       9))),
              "The file is no table of a known format.");
    EXPECT_EQ(CauseOf(Sample("tissue.png"), "CSV"), noText);
    EXPECT_EQ(CauseOf(Sample("tissue.png"), "DBASE"), noDbase);
}

TEST(TableFile, FileThatShrinksWhileItIsReadEndsTheTable)
{
    const TempFolder folder;
    std::string text = "A,B\r\n";
    while (text.size() < 4'000'000)
    {
        text += "12345,67890\r\n";
    }
    const std::string path = folder.Write("a.csv", text);
    const auto table = Open(path);
    ASSERT_THAT(table, NotNull());
    ASSERT_TRUE(table->ReadRow(0, 0));
    const HANDLE file = ::CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                      OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE) << "others may write the file meanwhile";
    ::SetFilePointer(file, 1'000'000, nullptr, FILE_BEGIN);
    EXPECT_TRUE(::SetEndOfFile(file));
    ::CloseHandle(file);

    int row = 1;
    while (table->ReadRow(row, 0))
    {
        ASSERT_THAT(table->GetCellText(row, 1, 0), StrEq("67890")) << row;
        ++row;
    }
    EXPECT_GT(row, 1);
    EXPECT_LE(row, 1'000'000 / 13);
    EXPECT_FALSE(table->ReadRow(row + 1, 0));
    EXPECT_THAT(table->GetCellText(row, 0, 0), StrEq(""));
}

TEST(TableFile, FileCanBeDeletedWhileItIsRead)
{
    const TempFolder folder;
    const std::string path = folder.Write("a.csv", "A,B\n1,2\n3,4\n");
    auto table = Open(path);
    ASSERT_THAT(table, NotNull());
    EXPECT_TRUE(::DeleteFileA(path.c_str()));
    EXPECT_EQ(CountRows(*table), 2);
}

TEST(TableFile, TextWithAByteOrderMarkComesInTheSystemsCodePage)
{
    ASSERT_EQ(::GetACP(), 1252u);
    const TempFolder folder;
    const auto table = Open(folder.Write("a.csv", "\xEF\xBB\xBFGr\xC3\xB6\xC3\x9F"
                                                  "e,Unit\n1,\xC2\xB5m\n2,\xE2\x89\xA4\n3,m\n"));
    ASSERT_THAT(table, NotNull());
    EXPECT_THAT(Names(*table), ElementsAre("Gr\xF6\xDF"
                                           "e",
                                           "Unit"));
    EXPECT_EQ(table->GetColType(0, 0), adiInt);
    ASSERT_TRUE(table->ReadRow(0, 0));
    EXPECT_THAT(table->GetCellText(0, 1, 0), StrEq("\xB5m"));
    ASSERT_TRUE(table->ReadRow(1, 0));
    EXPECT_THAT(std::string(table->GetCellText(1, 1, 0)), testing::AnyOf("?", "="))
        << "the nearest that the code page has";
    ASSERT_TRUE(table->ReadRow(2, 0));
    EXPECT_THAT(table->GetCellText(2, 1, 0), StrEq("m"));
    EXPECT_FALSE(table->ReadRow(3, 0));
}

TEST(TableFile, DbaseTextOfADosProgramComesInTheSystemsCodePage)
{
    const TempFolder folder;
    const auto table = Open(folder.Write(
        "a.dbf", DbaseWriter({{"NAME", 'C', 4}}).Add("Gr\x94\xE1").Set(DbaseWriter::kLanguageAt, 0x02, 1).Bytes()));
    ASSERT_THAT(table, NotNull());
    ASSERT_TRUE(table->ReadRow(0, 0));
    EXPECT_THAT(table->GetCellText(0, 0, 0), StrEq("Gr\xF6\xDF"));
}

TEST(TableFile, ReaderRefusesNewColumns)
{
    const TempFolder folder;
    const auto table = Open(folder.Write("a.csv", "A\n1\n"));
    ASSERT_THAT(table, NotNull());
    EXPECT_FALSE(table->AddCol("B", adiInt));
    EXPECT_EQ(table->GetNumCol(0), 1);
}
