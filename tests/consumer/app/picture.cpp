// picture.cpp - a window that shows one picture; the command line names the file
#include "tavkit/TavKit.h"

/// Shows a picture with its contrast stretched, at the size of the window.
class PictureWindow : public CFrameWnd
{
public:
    explicit PictureWindow(const CString& file) : m_file(file) {}

protected:
    afx_msg void OnPaint()
    {
        CPaintDC dc(this);
        CRect client;
        GetClientRect(client);
        if (!DrawImgToDC(m_file, &dc, client))
        {
            dc.DrawText(m_file + " can't be read.", client, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
        }
    }
    afx_msg void OnSize(UINT nType, int cx, int cy)
    {
        CFrameWnd::OnSize(nType, cx, cy);
        Invalidate(); // the picture is fitted anew
    }
    DECLARE_MESSAGE_MAP()

private:
    CString m_file;
};

BEGIN_MESSAGE_MAP(PictureWindow, CFrameWnd)
    ON_WM_PAINT()
    ON_WM_SIZE()
END_MESSAGE_MAP()

class PictureApp : public CWinApp
{
    BOOL InitInstance() override
    {
        TavKitInit();
        auto* const window = new PictureWindow(m_lpCmdLine); // deletes itself with its window
        if (!window->Create(nullptr, "Picture"))
        {
            return FALSE;
        }
        m_pMainWnd = window;
        window->ShowWindow(m_nCmdShow);
        return TRUE;
    }
    int ExitInstance() override
    {
        TavKitShutdown();
        return CWinApp::ExitInstance();
    }
} theApp;
