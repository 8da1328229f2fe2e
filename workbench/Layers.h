// Layers.h - the layers of a project: what can be laid over a picture or read beside it, in groups
#pragma once

#include "workbench/Project.h"

#include <string>
#include <vector>

namespace workbench
{
enum class LayerGroup
{
    images,
    tables, ///< what isn't a result
    results ///< vector data, and tables that were measured from a picture, going by their names
};

struct Layer
{
    LayerGroup group = LayerGroup::images;
    std::string moniker;
    std::string label;

    bool operator==(const Layer&) const = default;
};

/// The layers of all folders that were read so far, in the order of the tree. Hidden items are no layers, nor are the
/// pages of a picture.
[[nodiscard]] std::vector<Layer> LayersOf(const Project& project);

/// The layers to show after a project changed: those that were shown keep their order, those that the user took away
/// stay away, and new ones come last.
/// @param layers  of the project as it is now
/// @param before  of the project as it was
/// @param shown   monikers of those of `before` that were shown, in their order
[[nodiscard]] std::vector<Layer> ArrangeLayers(const std::vector<Layer>& layers, const std::vector<Layer>& before,
                                               const std::vector<std::string>& shown);
} // namespace workbench
