// TreeItemsFixture.h - a tree with a few items
#pragma once

#include "TreeFixture.h"

class TreeItems : public TreeTest
{
protected:
    void SetUp() override
    {
        TreeTest::SetUp();
        Open();
    }

    // a 1
    // +- b 2
    // |  +- c 3
    // +- d 4
    // e 3
    void Fill()
    {
        m_a = Add("a", TVI_ROOT, 1);
        m_b = Add("b", m_a, 2);
        m_c = Add("c", m_b, 3);
        m_d = Add("d", m_a, 4);
        m_e = Add("e", TVI_ROOT, 3);
    }

    HTREEITEM m_a = nullptr;
    HTREEITEM m_b = nullptr;
    HTREEITEM m_c = nullptr;
    HTREEITEM m_d = nullptr;
    HTREEITEM m_e = nullptr;
};
