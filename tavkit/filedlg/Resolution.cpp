// Resolution.cpp
#include "tavkit/filedlg/Resolution.h"
#include "tavkit/filedlg/FormatCatalogue.h"
#include "tavkit/filedlg/NodeCursor.h"
#include "tavkit/frame/NoCase.h"

#include "tavkit/frame/services/BDIDrvrMngr.h"

#include <cstring>
#include <memory>
#include <vector>

namespace tavkit
{

namespace
{

/// Appends a moniker to a list that owns its monikers.
void AppendMoniker(DVector<BDIMoniker*>& monikers, DString const& text, BDIDrvr* drvr)
{
    auto moniker = std::make_unique<BDIMoniker>(text.c_str(), drvr);
    monikers.Append(moniker.get());
    static_cast<void>(moniker.release());
}

void DeleteMoniker(DVector<BDIMoniker*>& monikers, int index)
{
    delete monikers[index];
    RemoveAt(monikers, index);
}

[[nodiscard]] bool SharesABit(BDINode const& node, int types) noexcept
{
    return (node.m_nKind & static_cast<unsigned int>(types)) != 0;
}

[[nodiscard]] DString WithOptions(DString const& text, char const* options)
{
    if (!options || !*options)
    {
        return text;
    }
    return text + (std::strchr(text.c_str(), '?') ? "&" : "?") + options;
}

/// Items that walks yielded, and whether they are known to be of a kind that the question accepts.
struct Collected
{
    DVector<BDIMoniker*> monikers;
    std::vector<bool> accepted;

    Collected() = default;
    Collected(Collected const&) = delete;
    Collected& operator=(Collected const&) = delete;
    ~Collected()
    {
        for (BDIMoniker const* moniker : monikers)
        {
            delete moniker;
        }
    }
};

/// Collects everything below a moniker's node, containers included.
/// @return false if there is nothing
bool CollectItems(BDIMoniker const& moniker, int nodeType, Collected& collected)
{
    const int before = collected.monikers.GetCount();
    NodeCursor cursor(moniker.GetDrvr(), moniker.GetNode(), true, static_cast<unsigned int>(nodeType));
    for (cursor.First(); cursor.Crnt(); cursor.Next())
    {
        AppendMoniker(collected.monikers, cursor.Crnt()->m_strId, moniker.GetDrvr());
        collected.accepted.push_back(SharesABit(*cursor.Crnt(), nodeType | static_cast<int>(bdiContainer)));
    }
    return collected.monikers.GetCount() > before;
}

/// Puts what is in the containers in the place of the containers, behind all else.
/// @return for every moniker whether it is known to be of a kind that the question accepts
std::vector<bool> ExpandAll(int nodeType, DVector<BDIMoniker*>& monikers)
{
    Collected collected;
    for (int i = monikers.GetCount() - 1; i >= 0; --i)
    {
        if (monikers[i]->GetNode() && CollectItems(*monikers[i], nodeType, collected))
        {
            DeleteMoniker(monikers, i);
        }
    }
    std::vector<bool> accepted(static_cast<std::size_t>(monikers.GetCount()), false);
    accepted.insert(accepted.end(), collected.accepted.begin(), collected.accepted.end());
    for (BDIMoniker*& moniker : collected.monikers)
    {
        monikers.Append(moniker);
        moniker = nullptr;
    }
    return accepted;
}

/// Looks into the one file that was picked: the user chooses among its items, or it may need parameters.
/// @param drvr  of the format
/// @return false if the user chose nothing
bool ExpandOne(ResolveRequest const& request, BDIDrvr* drvr, DVector<BDIMoniker*>& monikers, AskForItems const& ask)
{
    BDIMoniker const& moniker = *monikers[0];
    BDINode const* const node = moniker.GetNode();
    if (!node)
    {
        return true;
    }
    if (!HasNodeOfType(moniker.GetDrvr(), node, request.nodeType))
    {
        const DString parameter = moniker.GetDrvr()->GetDriverParameterString(node);
        if (!parameter.IsEmpty())
        {
            const DString text = moniker.GetMoniker() + "?" + parameter;
            DeleteMoniker(monikers, 0);
            AppendMoniker(monikers, text, drvr);
        }
        return true;
    }
    // A connection names one data set; whether the dialog took several files has no say here.
    const bool multi = !request.defExt || CompareNoCase(request.defExt, FileFrmtConn.m_strPattern.c_str()) != 0;
    DVectorSafe<DString> picked;
    if (!ask({moniker.GetDrvr(), moniker.GetMoniker(), request.nodeType, request.caption, multi}, picked))
    {
        return false;
    }
    DeleteMoniker(monikers, 0);
    for (DString const& text : picked)
    {
        AppendMoniker(monikers, text, drvr);
    }
    return !picked.IsEmpty();
}

/// Takes the driver off items that are of another kind than asked for, or puts the first table that such an item holds
/// in its place.
/// @param accepted  for the first so many monikers, true where the kind is known to be right: such an item isn't opened
void CheckKinds(int nodeType, DVector<BDIMoniker*>& monikers, std::vector<bool> const& accepted)
{
    for (std::size_t i = 0; i < static_cast<std::size_t>(monikers.GetCount()); ++i)
    {
        BDIMoniker& moniker = *monikers[static_cast<int>(i)];
        BDINode const* const node = i < accepted.size() && accepted[i] ? nullptr : moniker.GetNode();
        if (!node || SharesABit(*node, nodeType | static_cast<int>(bdiContainer)))
        {
            continue;
        }
        if ((nodeType & static_cast<int>(bdiTable)) != 0)
        {
            NodeCursor cursor(moniker.GetDrvr(), node, false, node->m_nKind);
            cursor.First();
            if (BDINode const* const child = cursor.Crnt())
            {
                const BDIMoniker table(child->m_strId.c_str(), moniker.GetDrvr());
                cursor.Close(); // before the repository that the assignment closes
                moniker = table;
                return; // the items behind it aren't looked at: that is wanted
            }
        }
        moniker.SetDrvr(nullptr);
    }
}

} // namespace

bool HasNodeOfType(BDIDrvr* drvr, BDINode const* node, int type)
{
    if (type == 0 || !drvr || !node)
    {
        return false;
    }
    // Not by recursion: a path may lead through more folders than the stack has room for.
    std::vector<std::unique_ptr<NodeCursor>> levels;
    const auto enter = [&](BDINode const* parent) {
        levels.push_back(
            std::make_unique<NodeCursor>(drvr, parent, false, static_cast<unsigned int>(type) | bdiContainer));
        levels.back()->First();
    };
    bool found = false;
    for (enter(node); !levels.empty() && !found;)
    {
        if (BDINode const* const child = levels.back()->Crnt())
        {
            found = SharesABit(*child, type);
            if (!found)
            {
                enter(child);
            }
            continue;
        }
        levels.pop_back();
        if (!levels.empty())
        {
            levels.back()->Next();
        }
    }
    while (!levels.empty())
    {
        levels.pop_back(); // the innermost first: its node belongs to the level above
    }
    return found;
}

bool ResolveFiles(ResolveRequest const& request, DVectorSafe<DFile> const& files, DVector<BDIMoniker*>& monikers,
                  AskForItems const& ask)
{
    BDIDrvr* const drvr =
        request.format ? BDIDrvrMngr::Instance()->FindDriverByFrmt(request.format->m_strId.c_str()) : nullptr;
    for (DFile const& file : files)
    {
        AppendMoniker(monikers, WithOptions(file.GetMoniker(), request.options), drvr);
    }
    std::vector<bool> accepted;
    if (request.load && monikers.GetCount() == 1)
    {
        if (!ExpandOne(request, drvr, monikers, ask))
        {
            return false;
        }
    }
    else if (request.load)
    {
        accepted = ExpandAll(request.nodeType, monikers);
    }
    CheckKinds(request.nodeType, monikers, accepted);
    return true;
}

} // namespace tavkit
