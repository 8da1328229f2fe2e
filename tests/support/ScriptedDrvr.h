// ScriptedDrvr.h - a repository driver over a tree that a test writes down, which counts and can fail at any step
#pragma once

#include "tavkit/frame/services/BDIDrvr.h"
#include "tavkit/frame/services/BDIDrvrMngr.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace support
{

/// Every node that has children is a repository of its own; a node's identifier is its path.
class ScriptedDrvr : public BDIDrvr
{
public:
    /// What a node is and which nodes it holds.
    struct Entry
    {
        unsigned int kind = 0;
        std::vector<std::string> children = {};
        std::string display = {};    ///< the identifier if empty
        std::string parameters = {}; ///< for GetDriverParameterString
    };

    /// What is open.
    struct Live
    {
        int repositories = 0;
        int nodes = 0;
        int walks = 0;

        bool operator==(Live const&) const = default;
    };

    ScriptedDrvr() = default;
    explicit ScriptedDrvr(std::map<std::string, Entry> entries) : m_entries(std::move(entries)) {}

    std::map<std::string, Entry> m_entries;
    Live m_live;
    int m_calls = 0;                ///< of operations that give something out
    int m_failFrom = -1;            ///< number of the first call that gives null; -1 for none
    bool m_failOnce = false;        ///< only that call
    bool m_emptyWalks = false;      ///< a search is begun though nothing is found
    bool m_closedTooEarly = false;  ///< a repository was closed while nodes or walks were open
    std::vector<int> m_masks;       ///< of the searches
    std::vector<std::string> m_log; ///< what was asked of which node

    void* OpenRepository(char const* path, BDINode** root) override
    {
        m_log.push_back(std::string("open ") + path);
        if (root)
        {
            *root = nullptr;
        }
        if (Fails() || !m_entries.contains(path))
        {
            return nullptr;
        }
        if (root)
        {
            *root = NewNode(path);
        }
        ++m_live.repositories;
        return this;
    }
    void CloseRepository(void*) override
    {
        --m_live.repositories;
        m_closedTooEarly = m_closedTooEarly || (m_live.nodes > 0 && m_live.repositories == 0) || m_live.walks > 0;
    }
    BDINode* OpenNode(void*, char const* id) override { return Fails() ? nullptr : NewNode(id); }
    void CloseNode(BDINode* node) override
    {
        --m_live.nodes;
        delete node;
    }
    void* FindFirstChildNode(BDINode const* node, int mask) override
    {
        m_masks.push_back(mask);
        m_log.push_back(std::string("find ") + node->m_strId.c_str());
        auto* const walk = new Walk;
        for (std::string const& child : m_entries[node->m_strId.c_str()].children)
        {
            if ((m_entries[child].kind & static_cast<unsigned int>(mask)) != 0)
            {
                walk->ids.push_back(child);
            }
        }
        if (Fails() || (walk->ids.empty() && !m_emptyWalks))
        {
            delete walk;
            return nullptr;
        }
        ++m_live.walks;
        return walk;
    }
    BDINode* FindNextChildNode(void*& hFind) override
    {
        auto* const walk = static_cast<Walk*>(hFind);
        return Fails() || walk->next == walk->ids.size() ? nullptr : NewNode(walk->ids[walk->next++]);
    }
    void FindClose(void* hFind) override
    {
        --m_live.walks;
        delete static_cast<Walk*>(hFind);
    }
    DString GetDriverParameterString(BDINode const* node) override
    {
        return m_entries[node->m_strId.c_str()].parameters.c_str();
    }

private:
    struct Walk
    {
        std::vector<std::string> ids;
        std::size_t next = 0;
    };

    [[nodiscard]] bool Fails()
    {
        const int call = m_calls++;
        return m_failFrom >= 0 && (m_failOnce ? call == m_failFrom : call >= m_failFrom);
    }

    BDINode* NewNode(std::string const& id)
    {
        const auto found = m_entries.find(id);
        if (found == m_entries.end())
        {
            return nullptr;
        }
        auto* const node = new BDINode;
        node->m_nKind = found->second.kind;
        node->m_strId = id.c_str();
        node->m_strDisplay = (found->second.display.empty() ? id : found->second.display).c_str();
        ++m_live.nodes;
        return node;
    }
};

/// A driver in the registry for as long as the object lives.
class RegisteredDrvr
{
public:
    RegisteredDrvr(char const* id, char const* formats, BDIDrvr& drvr) : m_drvr(drvr)
    {
        BDIDrvrMngr::Instance()->Register(id, formats, &drvr);
    }
    RegisteredDrvr(RegisteredDrvr const&) = delete;
    RegisteredDrvr& operator=(RegisteredDrvr const&) = delete;
    ~RegisteredDrvr() { BDIDrvrMngr::Instance()->Unregister(&m_drvr); }

private:
    BDIDrvr& m_drvr;
};

} // namespace support
