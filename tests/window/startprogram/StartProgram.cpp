// StartProgram.cpp - starts, runs and ends as a program of the framework does, and writes down what happened
//
// Command line: PLAY TRACEFILE, where PLAY is quit, refuse, close, idle or filter.

#include <afxwin.h>

#include <cstdio>
#include <memory>
#include <string>

namespace
{
constexpr int kQuitCode = 23;
constexpr int kRefusedCode = 41;
constexpr UINT kMenuItem = 40001;
constexpr UINT kPing = WM_APP + 1; ///< leads to nothing but idle work

class App : public CWinApp
{
public:
    App() : CWinApp("Start") {}

    void Note(const std::string& line)
    {
        if (m_trace != nullptr)
        {
            std::fprintf(m_trace.get(), "%s\n", line.c_str());
        }
    }

    BOOL InitInstance() override;
    int ExitInstance() override;
    int Run() override
    {
        Note("run");
        return CWinApp::Run();
    }
    BOOL OnIdle(LONG count) override;
    BOOL PreTranslateMessage(MSG* msg) override;
    BOOL ProcessMessageFilter(int code, LPMSG msg) override;

    std::string m_play;

private:
    struct Closer
    {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    std::unique_ptr<std::FILE, Closer> m_trace;
    int m_escapes = 0;
    bool m_pinged = false;
};

App theApp;

class MainFrame : public CFrameWnd
{
protected:
    void OnPing()
    {
        CMenu menu;
        menu.CreatePopupMenu();
        menu.AppendMenu(MF_STRING, kMenuItem, "Item");
        // The menu's loop takes both; the filter eats the first, and the second closes the menu.
        PostMessage(WM_KEYDOWN, VK_ESCAPE);
        PostMessage(WM_KEYDOWN, VK_ESCAPE);
        menu.TrackPopupMenu(TPM_LEFTALIGN, 10, 10, this);
        theApp.Note("menu closed");
        PostMessage(WM_CLOSE);
    }
    LRESULT OnPingMessage(WPARAM, LPARAM)
    {
        theApp.Note("ping");
        if (theApp.m_play == "filter")
        {
            OnPing();
        }
        return 0;
    }
    void OnDestroy()
    {
        theApp.Note("frame destroyed");
        CFrameWnd::OnDestroy();
    }
    DECLARE_MESSAGE_MAP()
};
BEGIN_MESSAGE_MAP(MainFrame, CFrameWnd)
    ON_MESSAGE(kPing, &MainFrame::OnPingMessage)
    ON_WM_DESTROY()
END_MESSAGE_MAP()

BOOL App::InitInstance()
{
    const std::string line = m_lpCmdLine;
    const size_t space = line.find(' ');
    if (space == std::string::npos)
    {
        return FALSE;
    }
    m_play = line.substr(0, space);
    m_trace.reset(std::fopen(line.substr(space + 1).c_str(), "w"));
    Note("init " + m_play);
    Note(m_hInstance == ::GetModuleHandleA(nullptr) && AfxGetInstanceHandle() == m_hInstance ? "own instance"
                                                                                             : "wrong instance");
    if (m_play == "quit")
    {
        AfxPostQuitMessage(kQuitCode);
        return TRUE;
    }
    auto* const frame = new MainFrame;
    m_pMainWnd = frame;
    if (!frame->Create(nullptr, "start", WS_OVERLAPPEDWINDOW, CRect(0, 0, 200, 100)))
    {
        return FALSE;
    }
    if (m_play == "refuse")
    {
        return FALSE;
    }
    frame->ShowWindow(m_nCmdShow);
    frame->UpdateWindow();
    if (m_play == "close")
    {
        frame->PostMessage(WM_CLOSE);
    }
    else if (m_play == "filter")
    {
        ::SetForegroundWindow(frame->m_hWnd);
        frame->PostMessage(kPing);
    }
    return TRUE;
}

int App::ExitInstance()
{
    Note(m_pMainWnd == nullptr ? "exit" : "exit with a main window");
    const int code = CWinApp::ExitInstance();
    m_trace.reset();
    return m_play == "refuse" ? kRefusedCode : code;
}

BOOL App::OnIdle(LONG count)
{
    const BOOL more = CWinApp::OnIdle(count);
    if (m_play == "idle")
    {
        Note("idle " + std::to_string(count) + (more ? ", more" : ", enough"));
        if (!more)
        {
            m_pMainWnd->PostMessage(m_pinged ? static_cast<UINT>(WM_CLOSE) : kPing);
            m_pinged = true;
        }
    }
    return more;
}

BOOL App::PreTranslateMessage(MSG* msg)
{
    if (msg->message == kPing)
    {
        Note("pre-translated");
    }
    return CWinApp::PreTranslateMessage(msg);
}

BOOL App::ProcessMessageFilter(int code, LPMSG msg)
{
    if (code == MSGF_MENU && msg->message == WM_KEYDOWN && msg->wParam == VK_ESCAPE)
    {
        ++m_escapes;
        Note("escape " + std::to_string(m_escapes) + " in a menu");
        if (m_escapes == 1)
        {
            return TRUE;
        }
    }
    return CWinApp::ProcessMessageFilter(code, msg);
}
} // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE before, LPSTR commandLine, int show)
{
    return AfxWinMain(instance, before, commandLine, show);
}
