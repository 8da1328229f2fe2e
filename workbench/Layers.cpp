#include "workbench/Layers.h"

#include "host/PathText.h"
#include "workbench/PictureNames.h"

#include <algorithm>

namespace workbench
{
namespace
{
using Names = std::vector<std::string>;

[[nodiscard]] std::string FileName(const std::string& moniker) { return std::string(host::SplitPath(moniker).name); }

void Collect(const Project& project, const ProjectItem& container, std::vector<Layer>& layers)
{
    Names pictures;
    for (const ProjectId child : container.children)
    {
        if (const ProjectItem& item = *project.Find(child); (item.kind & bdiRaster) != 0)
        {
            pictures.push_back(FileName(item.moniker));
        }
    }
    for (const ProjectId child : container.children)
    {
        const ProjectItem& item = *project.Find(child);
        if (item.hidden)
        {
            continue;
        }
        if (item.IsContainer())
        {
            Collect(project, item, layers);
        }
        else if ((item.kind & bdiRaster) != 0)
        {
            layers.push_back({LayerGroup::images, item.moniker, item.label});
        }
        else if ((item.kind & bdiTable) != 0)
        {
            const bool isMeasured = PictureOfTable(pictures, FileName(item.moniker)) >= 0;
            layers.push_back({isMeasured ? LayerGroup::results : LayerGroup::tables, item.moniker, item.label});
        }
        else if ((item.kind & bdiVector) != 0)
        {
            layers.push_back({LayerGroup::results, item.moniker, item.label});
        }
    }
}

[[nodiscard]] auto Named(const std::vector<Layer>& layers, const std::string& moniker)
{
    return std::ranges::find(layers, moniker, &Layer::moniker);
}
} // namespace

std::vector<Layer> LayersOf(const Project& project)
{
    std::vector<Layer> layers;
    if (const ProjectItem* const root = project.Find(project.Root()))
    {
        Collect(project, *root, layers);
    }
    return layers;
}

std::vector<Layer> ArrangeLayers(const std::vector<Layer>& layers, const std::vector<Layer>& before,
                                 const std::vector<std::string>& shown)
{
    std::vector<Layer> arranged;
    for (const std::string& moniker : shown)
    {
        if (const auto layer = Named(layers, moniker); layer != layers.end())
        {
            arranged.push_back(*layer);
        }
    }
    for (const Layer& layer : layers)
    {
        if (Named(before, layer.moniker) == before.end())
        {
            arranged.push_back(layer);
        }
    }
    return arranged;
}
} // namespace workbench
