// Resolution.h - how the files that a user picked become references to items of repositories
#pragma once

#include "tavkit/frame/Export.h"
#include "tavkit/frame/services/BDIMoniker.h"
#include "tavkit/frame/services/DFile.h"
#include "tavkit/frame/services/DFileFrmt.h"
#include "tavkit/frame/services/DVector.h"

#include <functional>

namespace tavkit
{

/// The question which items of a repository are meant.
struct ItemQuestion
{
    BDIDrvr* drvr;   ///< borrowed
    DString root;    ///< text of the repository's moniker
    int nodeType;    ///< kinds of the items to choose from
    DString caption; ///< of the dialog
    bool multi;      ///< several items may be picked
};

/// Puts the question to the user.
/// @param picked  receives the moniker texts of the items that were picked
/// @return false if the user cancelled
using AskForItems = std::function<bool(ItemQuestion const& question, DVectorSafe<DString>& picked)>;

/// What is known of a choice of files.
struct ResolveRequest
{
    bool load;               ///< look into containers
    int nodeType;            ///< kinds of nodes that the question accepts
    DFileFrmt const* format; ///< chosen in the filter; null for none
    DString caption;         ///< for a further question to the user
    char const* defExt;      ///< default pattern of the dialog; may be null
    char const* options;     ///< appended to each file's text; may be null
};

/// True if there is a node of one of the kinds @p type anywhere below @p node.
[[nodiscard]] TAVKIT_API bool HasNodeOfType(BDIDrvr* drvr, BDINode const* node, int type);

/// Makes monikers of picked files: ties them to the driver of the format, appends the options ("a.tif?page=1", or
/// behind "&" if there are some already) and, for loading, looks into them. Of several files, one that holds items of
/// the kinds asked for gives way to these, which come last. A single one that holds such items makes the user choose
/// among them. Items that turn out to be of another kind lose their driver; if tables are asked for, the first such
/// item that holds something gives way to the first thing in it, and the items behind it aren't looked at.
/// @param monikers  receives the result behind what it holds; the caller's to delete
/// @return false if the user chose nothing
TAVKIT_API bool ResolveFiles(ResolveRequest const& request, DVectorSafe<DFile> const& files,
                             DVector<BDIMoniker*>& monikers, AskForItems const& ask);

} // namespace tavkit
