#include "workbench/LayerList.h"

#include "workbench/resource.h"

#include <algorithm>
#include <array>

namespace workbench
{
namespace
{
struct GroupLook
{
    LayerGroup group;
    const char* name; // in the link of an empty group; the group's key as well
    COLORREF start;
    COLORREF end;
    int icon;
};

constexpr std::array kGroups{
    GroupLook{LayerGroup::images, "Images", RGB(196, 220, 244), RGB(74, 120, 172), IDI_LAYER_IMAGE},
    GroupLook{LayerGroup::tables, "Tables", RGB(210, 232, 206), RGB(88, 146, 92), IDI_LAYER_TABLE},
    GroupLook{LayerGroup::results, "Results", RGB(250, 226, 188), RGB(204, 132, 44), IDI_LAYER_RESULT},
};

[[nodiscard]] const GroupLook& LookOf(LayerGroup group) { return kGroups[static_cast<std::size_t>(group)]; }

/// A text in which the menu's letter marker is a character like any other.
[[nodiscard]] CString MenuText(const std::string& label)
{
    CString text(label.c_str());
    text.Replace("&", "&&");
    return text;
}
} // namespace

LayerList::LayerList()
{
    for (const GroupLook& look : kGroups)
    {
        AddTail(Group::Create(look.name, look.name, look.start, look.end, 0));
    }
    SetEnblKeySlct(true);
    Settle();
}

BOOL LayerList::Create(const RECT& rect, CWnd* parent, UINT id)
{
    return TmtcListCtrl::Create(WS_CHILD | WS_VISIBLE | WS_TABSTOP, rect, parent, id);
}

TmtcListCtrl::Group* LayerList::GroupOf(LayerGroup group) { return FindGroup(LookOf(group).name); }

const Layer* LayerList::LayerOf(const Item* item) const
{
    return item != nullptr ? &m_layers[item->GetData()] : nullptr;
}

const Layer* LayerList::Chosen() const { return LayerOf(GetSlctItem()); }

int LayerList::Count(LayerGroup group) { return GroupOf(group)->GetNumItem(); }

std::vector<std::string> LayerList::Shown()
{
    std::vector<std::string> shown;
    for (Item* item = GetNextItem(nullptr, false, false); item != nullptr; item = GetNextItem(item, false, false))
    {
        shown.push_back(LayerOf(item)->moniker);
    }
    return shown;
}

std::vector<const Layer*> LayerList::TakenOut(LayerGroup group)
{
    const std::vector<std::string> shown = Shown();
    std::vector<const Layer*> layers;
    for (const Layer& layer : m_layers)
    {
        if (layer.group == group && std::ranges::find(shown, layer.moniker) == shown.end())
        {
            layers.push_back(&layer);
        }
    }
    return layers;
}

TmtcListCtrl::Item* LayerList::AddCard(const Layer& layer)
{
    Item* const item = Item::Create(layer.label.c_str(), LookOf(layer.group).icon,
                                    static_cast<DWORD_PTR>(&layer - m_layers.data()), true);
    GroupOf(layer.group)->AddTail(item);
    return item;
}

/// After a change: a group has a plus only while it has something to add, and all cards are where they will be painted,
/// so that a click may come before the repaint.
void LayerList::Settle()
{
    for (const GroupLook& look : kGroups)
    {
        GroupOf(look.group)->SetEnblAdd(!TakenOut(look.group).empty());
    }
    if (m_hWnd != nullptr)
    {
        RepositionItems();
        Invalidate(FALSE);
    }
}

void LayerList::Update(const std::vector<Layer>& layers)
{
    if (layers == m_layers)
    {
        return;
    }
    const std::vector<Layer> arranged = ArrangeLayers(layers, m_layers, Shown());
    const Layer* const chosen = Chosen();
    const std::string chosenMoniker = chosen != nullptr ? chosen->moniker : "";
    m_isFilling = true;
    for (const GroupLook& look : kGroups)
    {
        Group* const group = GroupOf(look.group);
        while (group->GetNumItem() > 0)
        {
            group->RmvItem(group->Get(0), true);
        }
    }
    m_layers = layers;
    for (const Layer& layer : arranged)
    {
        Item* const item = AddCard(*std::ranges::find(m_layers, layer));
        if (layer.moniker == chosenMoniker)
        {
            OnSlctChng(nullptr, item);
        }
    }
    m_isFilling = false;
    Settle();
}

void LayerList::OnSlctChng(Elmt* pOld, Elmt* pNew)
{
    TmtcListCtrl::OnSlctChng(pOld, pNew);
    if (!m_isFilling && pNew != nullptr)
    {
        Tell(layerChosen);
    }
}

void LayerList::OnRmvItem(Group* pGrp, Item* pItem)
{
    TmtcListCtrl::OnRmvItem(pGrp, pItem);
    Settle();
    Tell(layersChanged);
}

bool LayerList::OnMoveItem(Group* pGrp, Item* pItem, bool bUp)
{
    const bool isMoved = TmtcListCtrl::OnMoveItem(pGrp, pItem, bUp);
    Settle();
    return isMoved;
}

TmtcListCtrl::Item* LayerList::OnAddToGroup(Group* pGrp)
{
    const auto look = std::ranges::find(kGroups, pGrp, [this](const GroupLook& l) { return GroupOf(l.group); });
    CMenu menu;
    if (look == kGroups.end() || !menu.CreatePopupMenu())
    {
        return nullptr;
    }
    const std::vector<Layer> before = m_layers; // the project may change while the menu is open
    const std::vector<const Layer*> offered = TakenOut(look->group);
    std::vector<Layer> layers;
    for (const Layer* const layer : offered)
    {
        layers.push_back(*layer);
        menu.AppendMenu(MF_STRING, layers.size(), MenuText(layer->label));
    }
    CPoint place;
    ::GetCursorPos(&place);
    const int picked = menu.TrackPopupMenu(TPM_LEFTALIGN | TPM_RETURNCMD | TPM_NONOTIFY, place.x, place.y, this);
    if (picked <= 0 || m_layers != before)
    {
        return nullptr;
    }
    Item* const item = AddCard(*std::ranges::find(m_layers, layers[static_cast<std::size_t>(picked) - 1]));
    Settle();
    Tell(layersChanged);
    return item;
}

void LayerList::Tell(LayerNotice notice)
{
    GetParent()->SendMessage(WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(), notice), reinterpret_cast<LPARAM>(m_hWnd));
}
} // namespace workbench
