#include "workbench/FrameLayout.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{
using workbench::DesignFrame;
using workbench::DialogUnits;
using workbench::FrameLayout;

/// What the usual dialog font has.
constexpr DialogUnits kUnits{6, 13};

int Width(const RECT& rect) { return rect.right - rect.left; }
int Height(const RECT& rect) { return rect.bottom - rect.top; }

std::vector<RECT> PartsOf(const FrameLayout& layout)
{
    return {layout.project,    layout.listLabel, layout.list,      layout.view,
            layout.pixelLabel, layout.pixelSize, layout.pixelUnit, layout.table};
}

bool Overlap(const RECT& a, const RECT& b)
{
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

TEST(DialogUnits, AreQuartersAndEighthsOfACharacterRounded)
{
    EXPECT_EQ(kUnits.X(4), 6);
    EXPECT_EQ(kUnits.X(5), 8); // 7.5
    EXPECT_EQ(kUnits.Y(8), 13);
    EXPECT_EQ(kUnits.Y(14), 23); // 22.75
    EXPECT_EQ(kUnits.Y(4), 7);   // 6.5
}

TEST(DesignFrame, HasNoPartOverAnotherOrOutsideWithAnyFont)
{
    for (const DialogUnits units : {kUnits, DialogUnits{8, 16}, DialogUnits{12, 26}, DialogUnits{5, 11}})
    {
        const FrameLayout layout = DesignFrame(units);
        const auto parts = PartsOf(layout);
        for (size_t i = 0; i < parts.size(); ++i)
        {
            EXPECT_GT(Width(parts[i]), 0) << i;
            EXPECT_GT(Height(parts[i]), 0) << i;
            EXPECT_GE(parts[i].left, units.X(4)) << i;
            EXPECT_GE(parts[i].top, units.Y(4)) << i;
            EXPECT_LE(parts[i].right, layout.client.cx - units.X(4)) << i;
            EXPECT_LE(parts[i].bottom, layout.client.cy - units.Y(4)) << i;
            for (size_t k = i + 1; k < parts.size(); ++k)
            {
                EXPECT_FALSE(Overlap(parts[i], parts[k])) << i << " and " << k;
            }
        }
    }
}

TEST(DesignFrame, AlignsItsParts)
{
    const FrameLayout layout = DesignFrame(kUnits);
    EXPECT_EQ(layout.listLabel.left, layout.list.left);
    EXPECT_EQ(layout.project.top, layout.view.top);
    EXPECT_EQ(layout.project.left, layout.list.left);
    EXPECT_EQ(layout.project.right, layout.list.right);
    EXPECT_EQ(layout.list.bottom, layout.pixelSize.bottom);
    EXPECT_EQ(layout.pixelLabel.left, layout.view.left);
    EXPECT_EQ(layout.pixelLabel.top, layout.pixelUnit.top);
    EXPECT_EQ(layout.client.cx - layout.view.right, layout.list.left) << "the margins are the same on both sides";
    EXPECT_EQ(layout.client.cy - layout.table.bottom, layout.view.top);
    EXPECT_EQ(layout.table.left, layout.list.left);
    EXPECT_EQ(layout.table.right, layout.view.right);
}
} // namespace
