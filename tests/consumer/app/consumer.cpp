// consumer.cpp - the smallest program on TavKit: draws one card and looks whether it is there
#include <afxwin.h>
#include "tavkit/TavKit.h"
#include <cstdio>

class ConsumerApp : public CWinApp
{
    BOOL InitInstance() override
    {
        TavKitInit();
        CDC dc;
        CBitmap bitmap;
        dc.CreateCompatibleDC(nullptr);
        bitmap.CreateBitmap(100, 50, 1, 32, nullptr);
        CBitmap* const old = dc.SelectObject(&bitmap);
        RoundRectGradient(dc.m_hDC, CRect(0, 0, 100, 50), 8, RGB(200, 0, 0), RGB(200, 0, 0), true, 0, 0);
        const bool drawn = dc.GetPixel(50, 25) == RGB(200, 0, 0) && dc.GetPixel(0, 0) == RGB(0, 0, 0);
        dc.SelectObject(old);
        TavKitShutdown();
        std::printf("[finished %d]\n", drawn ? 0 : 1);
        return FALSE;
    }
} theApp;
