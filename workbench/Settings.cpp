#include "workbench/Settings.h"

#include <afxwin.h>

namespace workbench
{
namespace
{
constexpr char kPixelSizeEntry[] = "PixelSize";
constexpr char kBackgroundEntry[] = "Background";
constexpr char kBarEntry[] = "ScaleBar";
constexpr char kPlateEntry[] = "ScaleBarPlate";
constexpr char kAskEntry[] = "AskBeforeDelete";
constexpr int kNoColor = -1;
constexpr int kLastColor = 0xFFFFFF;

std::optional<COLORREF> ReadColor(const char* section, const char* entry)
{
    const int value = static_cast<int>(AfxGetApp()->GetProfileInt(section, entry, kNoColor));
    return value >= 0 && value <= kLastColor ? std::optional(static_cast<COLORREF>(value)) : std::nullopt;
}

int NumberOf(const std::optional<COLORREF>& color) { return color ? static_cast<int>(*color) : kNoColor; }

void WriteNumber(const char* section, const char* entry, int before, int after, int standard)
{
    if (after == before)
    {
        return;
    }
    if (after == standard)
    {
        AfxGetApp()->WriteProfileString(section, entry, nullptr);
    }
    else
    {
        AfxGetApp()->WriteProfileInt(section, entry, after);
    }
}
} // namespace

Settings ReadSettings(const char* section)
{
    Settings settings;
    settings.pixelSize = static_cast<LPCTSTR>(AfxGetApp()->GetProfileString(section, kPixelSizeEntry));
    ViewColors& colors = settings.colors;
    colors.background = ReadColor(section, kBackgroundEntry);
    colors.bar = ReadColor(section, kBarEntry).value_or(colors.bar);
    colors.plate = ReadColor(section, kPlateEntry).value_or(colors.plate);
    settings.askBeforeDelete = AfxGetApp()->GetProfileInt(section, kAskEntry, TRUE) != 0;
    return settings;
}

void WriteSettings(const char* section, const Settings& before, const Settings& after)
{
    const Settings standard;
    if (after.pixelSize != before.pixelSize)
    {
        AfxGetApp()->WriteProfileString(section, kPixelSizeEntry,
                                        after.pixelSize.empty() ? nullptr : after.pixelSize.c_str());
    }
    const auto writeColor = [&](const char* entry, auto color) {
        WriteNumber(section, entry, NumberOf(before.colors.*color), NumberOf(after.colors.*color),
                    NumberOf(standard.colors.*color));
    };
    writeColor(kBackgroundEntry, &ViewColors::background);
    writeColor(kBarEntry, &ViewColors::bar);
    writeColor(kPlateEntry, &ViewColors::plate);
    WriteNumber(section, kAskEntry, before.askBeforeDelete, after.askBeforeDelete, standard.askBeforeDelete);
}
} // namespace workbench
