#include "Modal.h"

#include "Pump.h"

#include <map>
#include <utility>

namespace support
{
namespace
{
constexpr UINT kPollMs = 5;
constexpr const char* kDialogClass = "#32770";

struct Search
{
    const char* className;
    const char* title;
    HWND found;
};

BOOL CALLBACK MatchWindow(HWND window, LPARAM param)
{
    auto& search = *reinterpret_cast<Search*>(param);
    char text[256];
    if (!::IsWindowVisible(window))
    {
        return TRUE;
    }
    if (search.className != nullptr &&
        (::GetClassNameA(window, text, sizeof text) == 0 || std::string(search.className) != text))
    {
        return TRUE;
    }
    text[0] = 0;
    ::GetWindowTextA(window, text, sizeof text);
    if (search.title != nullptr && std::string(search.title) != text)
    {
        return TRUE;
    }
    search.found = window;
    return FALSE;
}

BOOL CALLBACK CloseDialog(HWND window, LPARAM)
{
    char name[64] = "";
    ::GetClassNameA(window, name, sizeof name);
    if (std::string(name) == kDialogClass)
    {
        ::PostMessageA(window, WM_COMMAND, IDCANCEL, 0);
        ::PostMessageA(window, WM_CLOSE, 0, 0);
    }
    return TRUE;
}
} // namespace

HWND FindThreadWindow(const char* className, const char* title)
{
    Search search{className, title, nullptr};
    ::EnumThreadWindows(::GetCurrentThreadId(), MatchWindow, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

struct ModalHelper::State
{
    Find find;
    Act act;
    std::chrono::steady_clock::time_point end;
    UINT_PTR timer = 0;
    bool done = false;

    static std::map<UINT_PTR, State*>& ByTimer()
    {
        static std::map<UINT_PTR, State*> map;
        return map;
    }

    void Stop()
    {
        if (timer != 0)
        {
            ::KillTimer(nullptr, timer);
            ByTimer().erase(timer);
            timer = 0;
        }
    }
};

ModalHelper::ModalHelper(Find find, Act act) : m_state(std::make_unique<State>())
{
    m_state->find = std::move(find);
    m_state->act = std::move(act);
    m_state->end = std::chrono::steady_clock::now() + kDeadline;
    m_state->timer = ::SetTimer(nullptr, 0, kPollMs, OnTimer);
    State::ByTimer()[m_state->timer] = m_state.get();
}

ModalHelper::ModalHelper(const char* title, Act act)
    : ModalHelper([text = std::string(title)] { return FindThreadWindow(kDialogClass, text.c_str()); }, std::move(act))
{
}

ModalHelper::~ModalHelper() { m_state->Stop(); }

bool ModalHelper::Done() const { return m_state->done; }

void CALLBACK ModalHelper::OnTimer(HWND, UINT, UINT_PTR id, DWORD)
{
    const auto place = State::ByTimer().find(id);
    if (place == State::ByTimer().end())
    {
        return;
    }
    State& state = *place->second;
    if (HWND window = state.find())
    {
        state.Stop(); // before acting: the action may run a loop of its own
        state.done = true;
        state.act(window);
    }
    else if (std::chrono::steady_clock::now() >= state.end)
    {
        state.Stop();
        ::EnumThreadWindows(::GetCurrentThreadId(), CloseDialog, 0);
    }
}

void PressButton(HWND dialog, int id)
{
    ::PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(::GetDlgItem(dialog, id)));
}
} // namespace support
