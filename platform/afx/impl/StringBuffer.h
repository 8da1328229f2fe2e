// StringBuffer.h - head of a counted text; the text and its terminator follow directly
#pragma once

#include "afxdefs.h"
#include <atomic>
#include <cstdlib>

struct AFX_STRING_BUFFER
{
    static constexpr int kNotCounted = -1;

    std::atomic<int> nRefs; // kNotCounted for the common empty text
    int nLength;            // bytes, terminator not included
    int nCapacity;          // bytes there is room for, terminator not included

    /// A text of length 0 with one reference. Throws CMemoryException.
    static AFX_STRING_BUFFER* Allocate(int nCapacity);
    /// A copy with one reference; the common empty text for a capacity of 0.
    static AFX_STRING_BUFFER* Make(LPCTSTR lpch, int nLength, int nCapacity);

    LPTSTR Text() noexcept { return reinterpret_cast<LPTSTR>(this + 1); }
    bool IsShared() const noexcept { return nRefs.load(std::memory_order_acquire) != 1; }

    void SetLength(int nNewLength) noexcept
    {
        nLength = nNewLength;
        Text()[nNewLength] = '\0';
    }
    void AddRef() noexcept
    {
        if (nRefs.load(std::memory_order_relaxed) != kNotCounted)
        {
            nRefs.fetch_add(1, std::memory_order_relaxed);
        }
    }
    void Release() noexcept
    {
        if (nRefs.load(std::memory_order_relaxed) != kNotCounted && nRefs.fetch_sub(1, std::memory_order_acq_rel) == 1)
        {
            std::free(this);
        }
    }
};
