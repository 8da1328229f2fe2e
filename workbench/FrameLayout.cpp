#include "workbench/FrameLayout.h"

namespace workbench
{
namespace
{
constexpr int kUnitsPerCharWidth = 4;
constexpr int kUnitsPerCharHeight = 8;

// All in dialog units.
constexpr int kMargin = 4;
constexpr int kListWidth = 124;
constexpr int kLabelHeight = 8;
constexpr int kLabelGap = 2; // between a label and what is under it
constexpr int kFieldHeight = 14;
constexpr int kFieldLabelDrop = 3; // puts the label's text on the base line of the field's
constexpr int kPixelLabelWidth = 32;
constexpr int kPixelSizeWidth = 44;
constexpr int kPixelUnitWidth = 52;
constexpr int kViewWidth = 162;
constexpr int kViewHeight = 132;
constexpr int kProjectHeight = 84;
constexpr int kTableHeight = 70;

int Scale(int units, int base, int perBase) { return (units * base + perBase / 2) / perBase; }
} // namespace

int DialogUnits::X(int units) const noexcept { return Scale(units, charWidth, kUnitsPerCharWidth); }

int DialogUnits::Y(int units) const noexcept { return Scale(units, charHeight, kUnitsPerCharHeight); }

FrameLayout DesignFrame(const DialogUnits& units) noexcept
{
    const int marginX = units.X(kMargin);
    const int marginY = units.Y(kMargin);
    const int listRight = marginX + units.X(kListWidth);
    const int left = listRight + marginX;
    const int right = left + units.X(kViewWidth);
    const int viewBottom = marginY + units.Y(kViewHeight);
    const int fieldTop = viewBottom + marginY;
    const int bottom = fieldTop + units.Y(kFieldHeight);

    FrameLayout layout;
    const int tableTop = bottom + marginY;
    const int tableBottom = tableTop + units.Y(kTableHeight);
    layout.client = {right + marginX, tableBottom + marginY};
    const int projectBottom = marginY + units.Y(kProjectHeight);
    const int listLabelTop = projectBottom + marginY;
    const int labelBottom = listLabelTop + units.Y(kLabelHeight);
    layout.project = {marginX, marginY, listRight, projectBottom};
    layout.listLabel = {marginX, listLabelTop, listRight, labelBottom};
    layout.list = {marginX, labelBottom + units.Y(kLabelGap), listRight, bottom};
    layout.view = {left, marginY, right, viewBottom};
    layout.table = {marginX, tableTop, right, tableBottom};

    const int labelTop = fieldTop + units.Y(kFieldLabelDrop);
    const int fieldLeft = left + units.X(kPixelLabelWidth);
    const int fieldRight = fieldLeft + units.X(kPixelSizeWidth);
    layout.pixelLabel = {left, labelTop, fieldLeft, labelTop + units.Y(kLabelHeight)};
    layout.pixelSize = {fieldLeft, fieldTop, fieldRight, bottom};
    const int unitLeft = fieldRight + marginX;
    layout.pixelUnit = {unitLeft, labelTop, unitLeft + units.X(kPixelUnitWidth), labelTop + units.Y(kLabelHeight)};
    return layout;
}
} // namespace workbench
