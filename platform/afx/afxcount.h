// afxcount.h - counts of the system objects that the framework holds, by kind, so that a test can ask before and after
#pragma once

#include "afxdefs.h"

/// Kinds of system objects that the framework creates and owns.
enum class AfxResource
{
    Window,
    DeviceContext,
    Pen,
    Brush,
    Font,
    Bitmap,
    Region,
    Palette,
    ImageList,
    Menu,
    Icon,
    Count // number of kinds
};

// Behind the functions below; safe from every thread.
TAVAFX_API void AfxAddToLiveCount(AfxResource kind, int nDelta) noexcept;
TAVAFX_API int AfxReadLiveCount(AfxResource kind) noexcept;

#ifdef NDEBUG
inline void AfxCountCreated(AfxResource) noexcept {}
inline void AfxCountReleased(AfxResource) noexcept {}
/// Objects of the kind that are alive; always 0 in a release build, which doesn't count.
inline int AfxGetLiveCount(AfxResource) noexcept { return 0; }
#else
/// One object of the kind was created, or its ownership was taken over.
inline void AfxCountCreated(AfxResource kind) noexcept { AfxAddToLiveCount(kind, 1); }
/// One object of the kind was released, or its ownership was given away.
inline void AfxCountReleased(AfxResource kind) noexcept { AfxAddToLiveCount(kind, -1); }
/// Objects of the kind that are alive.
inline int AfxGetLiveCount(AfxResource kind) noexcept { return AfxReadLiveCount(kind); }
#endif
