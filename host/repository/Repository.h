// Repository.h - what a kind of repository knows: its nodes and how they hang together
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tavkit/frame/services/BDIDrvr.h"

namespace repository
{
/// A node as a value.
struct NodeRecord
{
    unsigned int kind = 0; ///< bits of BDINodeKind
    std::string id;        ///< text of the moniker that names the node
    std::string display;   ///< what a user reads

    bool operator==(const NodeRecord&) const = default;
};

/// An opened repository. What lies in it may change or vanish at any time: an operation then answers by what it finds.
class Repository
{
public:
    Repository() = default;
    Repository(const Repository&) = delete;
    Repository& operator=(const Repository&) = delete;
    virtual ~Repository() = default;

    [[nodiscard]] virtual NodeRecord Root() const = 0;

    /// The node that an identifier names; nothing if there is none.
    [[nodiscard]] virtual std::optional<NodeRecord> Find(std::string_view id) const = 0;

    /// The children of a node that share a bit with the mask, in the order in which they are shown. Empty for a node
    /// that holds none or can't be read.
    [[nodiscard]] virtual std::vector<NodeRecord> Children(const BDINode& parent, unsigned int mask) const = 0;

    /// The parameters that a path needs to name a node to the driver; "" if it needs none.
    [[nodiscard]] virtual std::string Parameters(const BDINode& node) const = 0;
};
} // namespace repository
