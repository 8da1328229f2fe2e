// XMLNode.cpp - the tree of elements; xml/XMLReader.cpp and xml/XMLWriter.cpp know the files
#include "tavkit/frame/services/XMLNode.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <string_view>
#include <system_error>
#include <utility>

namespace
{
constexpr char const* kTrue = "true";
constexpr char const* kFalse = "false";

/// Reads a decimal number at the start of a text, behind blanks and a sign; the nearest int when it is out of range.
int ToInt(std::string_view text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    if (text.starts_with('+') && text.substr(1).find_first_of("0123456789") == 0)
    {
        text.remove_prefix(1);
    }
    int value = 0;
    if (std::from_chars(text.data(), text.data() + text.size(), value).ec == std::errc::result_out_of_range)
    {
        return text.starts_with('-') ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
    }
    return value;
}
} // namespace

XMLNode::XMLNode(char const* name) : m_strName(name) {}

XMLNode::~XMLNode() { DeleteChildren(); }

void XMLNode::DeleteChildren() noexcept
{
    // The children of a node are put in front of its siblings before it goes: no destructor finds children of its own,
    // and no depth of the tree reaches the stack.
    for (XMLNode* node = m_pFrstChld; node;)
    {
        if (XMLNode* const frst = std::exchange(node->m_pFrstChld, nullptr))
        {
            XMLNode* last = frst;
            while (last->m_pNext)
            {
                last = last->m_pNext;
            }
            last->m_pNext = node->m_pNext;
            node->m_pNext = frst;
        }
        delete std::exchange(node, node->m_pNext);
    }
    m_pFrstChld = nullptr;
    m_pLastChld = nullptr;
}

char const* XMLNode::GetName() const { return m_strName.c_str(); }

XMLNode::Attr const* XMLNode::FindAttr(char const* name) const
{
    const auto found = std::ranges::find_if(m_vecAttr, [&](Attr const& attr) { return attr.m_strName == name; });
    return found == m_vecAttr.end() ? nullptr : &*found;
}

DString XMLNode::GetAttrStr(char const* name) const
{
    Attr const* const attr = FindAttr(name);
    return attr ? attr->m_strValue : DString();
}

int XMLNode::GetAttrInt(char const* name) const
{
    Attr const* const attr = FindAttr(name);
    return attr ? ToInt(attr->m_strValue.c_str()) : 0;
}

bool XMLNode::GetAttrBool(char const* name) const
{
    Attr const* const attr = FindAttr(name);
    return attr && (attr->m_strValue == kTrue || ToInt(attr->m_strValue.c_str()) != 0);
}

bool XMLNode::HasAttr(char const* name) const { return FindAttr(name) != nullptr; }

int XMLNode::GetNumAttr() const { return static_cast<int>(m_vecAttr.size()); }

DString XMLNode::GetAttrName(int index) const
{
    return index >= 0 && index < GetNumAttr() ? m_vecAttr[static_cast<std::size_t>(index)].m_strName : DString();
}

void XMLNode::AddAttr(char const* name, int value) { AddAttr(name, DString::Format("%d", value).c_str()); }

void XMLNode::AddAttr(char const* name, bool value) { AddAttr(name, value ? kTrue : kFalse); }

void XMLNode::AddAttr(char const* name, char const* value)
{
    if (!name || !*name)
    {
        return;
    }
    if (Attr const* const attr = FindAttr(name))
    {
        const_cast<Attr*>(attr)->m_strValue = value;
        return;
    }
    m_vecAttr.push_back({name, value});
}

void XMLNode::AddChld(XMLNode* child)
{
    if (!child)
    {
        return;
    }
    child->m_pNext = nullptr;
    if (!m_pFrstChld)
    {
        m_pFrstChld = child;
    }
    else
    {
        XMLNode* last = m_pLastChld ? m_pLastChld : m_pFrstChld;
        while (last->m_pNext)
        {
            last = last->m_pNext; // a caller has linked children itself
        }
        last->m_pNext = child;
    }
    m_pLastChld = child;
}

XMLNode* XMLNode::RmvChld(XMLNode* child)
{
    for (XMLNode** link = &m_pFrstChld; *link; link = &(*link)->m_pNext)
    {
        if (*link == child)
        {
            *link = std::exchange(child->m_pNext, nullptr);
            m_pLastChld = nullptr;
            return child;
        }
    }
    return nullptr;
}

void XMLNode::TakeContent(XMLNode& other) noexcept
{
    std::swap(m_strName, other.m_strName);
    std::swap(m_vecAttr, other.m_vecAttr);
    std::swap(m_pFrstChld, other.m_pFrstChld);
    std::swap(m_pLastChld, other.m_pLastChld);
}
