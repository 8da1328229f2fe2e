// BDIMoniker.cpp
#include "tavkit/frame/services/BDIMoniker.h"

#include <string>
#include <utility>

#include "host/PathText.h"

BDIMoniker::BDIMoniker(char const* text, BDIDrvr* drvr) : m_strText(text), m_pDrvr(drvr) {}

BDIMoniker::BDIMoniker(BDIMoniker const& other) : m_strText(other.m_strText), m_pDrvr(other.m_pDrvr) {}

BDIMoniker& BDIMoniker::operator=(BDIMoniker const& other)
{
    if (this != &other)
    {
        DString text = other.m_strText;
        CloseNode();
        m_strText = std::move(text);
        m_pDrvr = other.m_pDrvr;
    }
    return *this;
}

BDIMoniker::~BDIMoniker() { CloseNode(); }

DString BDIMoniker::GetMoniker() const { return m_strText; }

DString BDIMoniker::GetPathOnDisk() const
{
    const host::PathParts parts = host::SplitPath(m_strText.c_str());
    return (std::string(parts.folder) += parts.name).c_str();
}

DString BDIMoniker::GetDisplayName() const
{
    if (BDINode const* const node = GetNode(); node && !node->m_strDisplay.IsEmpty())
    {
        return node->m_strDisplay;
    }
    const host::PathParts parts = host::SplitPath(m_strText.c_str());
    // A folder written with its closing separator has no name behind it and is shown whole.
    return parts.name.empty() ? m_strText : DString((std::string(parts.name) += parts.options).c_str());
}

DString BDIMoniker::GetFrmtExtn() const
{
    return std::string(host::ExtensionOf(host::SplitPath(m_strText.c_str()).name)).c_str();
}

BDINode const* BDIMoniker::GetNode() const
{
    if (m_pDrvr && !m_bNodeLookedUp)
    {
        m_bNodeLookedUp = true;
        BDINode* root = nullptr;
        m_hRepository = m_pDrvr->OpenRepository(GetPathOnDisk().c_str(), &root);
        if (m_hRepository)
        {
            m_pNode = m_pDrvr->OpenNode(m_hRepository, m_strText.c_str());
        }
        if (root)
        {
            m_pDrvr->CloseNode(root);
        }
    }
    return m_pNode;
}

BDIDrvr* BDIMoniker::GetDrvr() const { return m_pDrvr; }

void BDIMoniker::SetDrvr(BDIDrvr* drvr)
{
    if (drvr != m_pDrvr)
    {
        CloseNode();
        m_pDrvr = drvr;
    }
}

void BDIMoniker::CloseNode() const
{
    if (m_pNode)
    {
        m_pDrvr->CloseNode(std::exchange(m_pNode, nullptr));
    }
    if (m_hRepository)
    {
        m_pDrvr->CloseRepository(std::exchange(m_hRepository, nullptr));
    }
    m_bNodeLookedUp = false;
}
