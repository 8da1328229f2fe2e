// LayersTest.cpp - which items of a project are layers, and in which order they are shown
#include "workbench/Layers.h"

#include <gmock/gmock.h>

namespace
{
using namespace workbench;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto kImages = LayerGroup::images;
constexpr auto kTables = LayerGroup::tables;
constexpr auto kResults = LayerGroup::results;

Layer Image(const std::string& moniker) { return {kImages, moniker, moniker}; }

class LayersTest : public testing::Test
{
protected:
    void Fill(const std::vector<repository::NodeRecord>& children)
    {
        m_root = m_project.Begin({bdiContainer, "C:\\r", "r"});
        m_project.Fill(m_root, children);
    }
    [[nodiscard]] ProjectId Child(ProjectId parent, std::size_t index) const
    {
        return m_project.Find(parent)->children.at(index);
    }

    Project m_project;
    ProjectId m_root = 0;
};

TEST_F(LayersTest, ArePicturesTablesAndVectorDataInTheOrderOfTheTree)
{
    Fill({{bdiRaster, "C:\\r\\b.tif", "b.tif"},
          {bdiTable, "C:\\r\\t.csv", "t.csv"},
          {bdiVector, "C:\\r\\v.shp", "v.shp"},
          {bdiOther, "C:\\r\\link", "link"},
          {bdiRaster, "C:\\r\\a.tif", "a.tif"}});
    EXPECT_THAT(LayersOf(m_project),
                ElementsAre(Layer{kImages, "C:\\r\\b.tif", "b.tif"}, Layer{kTables, "C:\\r\\t.csv", "t.csv"},
                            Layer{kResults, "C:\\r\\v.shp", "v.shp"}, Layer{kImages, "C:\\r\\a.tif", "a.tif"}));
}

TEST_F(LayersTest, ATableThatIsNamedAfterAPictureBesideItIsAResult)
{
    Fill({{bdiTable, "C:\\r\\cell_objects.csv", "cell_objects.csv"},
          {bdiTable, "C:\\r\\other.csv", "other.csv"},
          {bdiRaster, "C:\\r\\cell.tif", "cell.tif"}});
    const std::vector<Layer> layers = LayersOf(m_project);
    ASSERT_EQ(layers.size(), 3U);
    EXPECT_EQ(layers[0].group, kResults);
    EXPECT_EQ(layers[1].group, kTables);
}

TEST_F(LayersTest, GoThroughFoldersThatWereReadAndLeaveOutPagesAndWhatIsHidden)
{
    Fill({{bdiContainer, "C:\\r\\sub", "sub"},
          {bdiContainer, "C:\\r\\hidden", "hidden"},
          {bdiRaster, "C:\\r\\stack.tif", "stack.tif"},
          {bdiRaster, "C:\\r\\gone.tif", "gone.tif"}});
    m_project.Fill(Child(m_root, 0), {{bdiRaster, "C:\\r\\sub\\x.tif", "x.tif"}});
    m_project.Fill(Child(m_root, 1), {{bdiRaster, "C:\\r\\hidden\\y.tif", "y.tif"}});
    m_project.Fill(Child(m_root, 2), {{bdiRaster, "C:\\r\\stack.tif?page=0", "Page 0"}});
    m_project.SetHidden(Child(m_root, 1), true);
    m_project.SetHidden(Child(m_root, 3), true);
    EXPECT_THAT(LayersOf(m_project), ElementsAre(Layer{kImages, "C:\\r\\sub\\x.tif", "x.tif"},
                                                 Layer{kImages, "C:\\r\\stack.tif", "stack.tif"}));
}

TEST_F(LayersTest, OfNoProjectAreNone) { EXPECT_THAT(LayersOf(m_project), IsEmpty()); }

TEST(ArrangeLayers, ShowsAllAtFirst)
{
    EXPECT_THAT(ArrangeLayers({Image("a"), Image("b")}, {}, {}), ElementsAre(Image("a"), Image("b")));
}

TEST(ArrangeLayers, KeepsOrderAndWhatWasTakenAwayAndPutsNewOnesLast)
{
    const std::vector<Layer> before{Image("a"), Image("b"), Image("c")};
    EXPECT_THAT(ArrangeLayers({Image("new"), Image("a"), Image("b"), Image("c")}, before, {"c", "a"}),
                ElementsAre(Image("c"), Image("a"), Image("new")));
}

TEST(ArrangeLayers, DropsWhatTheProjectHasNoLonger)
{
    EXPECT_THAT(ArrangeLayers({Image("b")}, {Image("a"), Image("b")}, {"a", "b"}), ElementsAre(Image("b")));
}

TEST(ArrangeLayers, TakesOverNewLabels)
{
    const Layer renamed{kImages, "a", "new label"};
    EXPECT_THAT(ArrangeLayers({renamed}, {Image("a")}, {"a"}), ElementsAre(renamed));
}
} // namespace
