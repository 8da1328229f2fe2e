// WndMap.h - the calling thread's map from window handles to objects
#pragma once

#include "impl/HandleMap.h"

#include <afxwnd.h>

template <>
struct AfxHandleTraits<CWnd, HWND>
{
    static std::unique_ptr<CWnd> MakeTemporary() { return std::make_unique<CWnd>(); }
    static void SetHandle(CWnd& wnd, HWND handle) { wnd.m_hWnd = handle; }
};

inline CHandleMap<CWnd, HWND>& AfxWndMap() { return AfxGetHandleMap<CWnd, HWND>(AfxMapKind::Window); }
