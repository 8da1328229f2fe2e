// AttrDataTest.cpp - what a table gets from its base
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "tavkit/frame/services/IAttrData.h"

namespace
{
/// A reader that only supplies what a reader must.
class Reader : public IAttrData
{
public:
    int GetNumCol(int) override { return 1; }
    bool ReadRow(int, int) override { return false; }
    char const* GetColName(int, int) override { return "Name"; }
    char const* GetCellText(int, int, int) override { return ""; }
};

/// A writer that notes its columns.
class Writer : public Reader
{
public:
    std::vector<std::string> m_vecName;

protected:
    bool OnAddCol(char const* name, ADIColType type) override
    {
        m_vecName.emplace_back(name);
        return type == adiInt;
    }
};
} // namespace

TEST(AttrData, ColumnOfAReaderThatKnowsNoTypesHasNone) { EXPECT_EQ(Reader().GetColType(0, 0), adiNone); }

TEST(AttrData, ReaderRefusesNewColumns)
{
    Reader reader;
    EXPECT_FALSE(reader.AddCol("Area", adiInt));
}

TEST(AttrData, WriterIsHandedTheColumnAndItsAnswerComesBack)
{
    Writer writer;
    EXPECT_TRUE(writer.AddCol("Area", adiInt));
    EXPECT_FALSE(writer.AddCol("Class", adiString));
    EXPECT_THAT(writer.m_vecName, testing::ElementsAre("Area", "Class"));
}

TEST(AttrData, ColumnWithoutANameIsRefusedBeforeTheWriterSeesIt)
{
    Writer writer;
    EXPECT_FALSE(writer.AddCol(nullptr, adiInt));
    EXPECT_THAT(writer.m_vecName, testing::IsEmpty());
}
