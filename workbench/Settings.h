// Settings.h - what the user has chosen, and where it is kept
#pragma once

#include "workbench/ViewColors.h"

#include <string>

namespace workbench
{
/// What the user may set.
struct Settings
{
    std::string pixelSize; ///< micrometres, as typed; empty for none
    ViewColors colors;
    bool askBeforeDelete = true; ///< before a picture is deleted from the list

    bool operator==(const Settings&) const = default;
};

/// Reads the settings from a section of the application's profile. An entry that is missing, of another type or out of
/// range leaves the default.
[[nodiscard]] Settings ReadSettings(const char* section);

/// Writes the entries that differ, so that two programs at work don't undo each other's. A default is not written but
/// deleted: it may come to mean something else. What can't be written is gone at the next start.
void WriteSettings(const char* section, const Settings& before, const Settings& after);
} // namespace workbench
