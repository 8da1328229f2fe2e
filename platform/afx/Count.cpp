// Count.cpp - counts of live system objects
#include "afxcount.h"
#include <array>
#include <atomic>

namespace
{
std::array<std::atomic<int>, static_cast<size_t>(AfxResource::Count)> g_counts;
}

void AfxAddToLiveCount(AfxResource kind, int nDelta) noexcept { g_counts[static_cast<size_t>(kind)] += nDelta; }
int AfxReadLiveCount(AfxResource kind) noexcept { return g_counts[static_cast<size_t>(kind)]; }
