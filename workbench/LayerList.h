// LayerList.h - the layers of the project as cards in groups
#pragma once

#include "tavkit/thematic/TmtcGroup.h"
#include "workbench/Layers.h"

#include <string>
#include <vector>

namespace workbench
{
/// What the list tells its parent: codes of WM_COMMAND under the list's own id.
enum LayerNotice
{
    layerChosen = 1,  ///< the user chose another layer
    layersChanged = 2 ///< the user added or removed one
};

/// A group each for images, tables and results. The arrows of a card change the order in its group, its minus takes the
/// layer out of the list, and the plus of a group offers the layers of the project that were taken out. The project
/// itself isn't changed.
class LayerList : public TmtcListCtrl
{
public:
    LayerList();

    BOOL Create(const RECT& rect, CWnd* parent, UINT id);
    /// Shows the layers of the project as it is now; order and what was taken out are kept.
    void Update(const std::vector<Layer>& layers);
    /// The chosen layer; null without one. Valid until the next change.
    [[nodiscard]] const Layer* Chosen() const;
    /// Number of layers shown in a group.
    [[nodiscard]] int Count(LayerGroup group);

protected:
    void OnSlctChng(Elmt* pOld, Elmt* pNew) override;
    void OnRmvItem(Group* pGrp, Item* pItem) override;
    Item* OnAddToGroup(Group* pGrp) override;
    bool OnMoveItem(Group* pGrp, Item* pItem, bool bUp) override;

private:
    [[nodiscard]] Group* GroupOf(LayerGroup group);
    [[nodiscard]] const Layer* LayerOf(const Item* item) const;
    [[nodiscard]] std::vector<std::string> Shown();
    [[nodiscard]] std::vector<const Layer*> TakenOut(LayerGroup group);
    Item* AddCard(const Layer& layer);
    void Settle();
    void Tell(LayerNotice notice);

    std::vector<Layer> m_layers; // of the project; cards carry an index
    bool m_isFilling = false;    // what is selected meanwhile isn't the user's doing
};
} // namespace workbench
