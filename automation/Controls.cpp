#include "automation/Controls.h"

namespace automation
{
HWND FindControl(HWND window, int id)
{
    struct Search
    {
        int id;
        HWND found;
    } search{id, nullptr};
    ::EnumChildWindows(
        window,
        [](HWND child, LPARAM param) {
            auto& wanted = *reinterpret_cast<Search*>(param);
            wanted.found = ::GetDlgCtrlID(child) == wanted.id ? child : nullptr;
            return BOOL(wanted.found == nullptr);
        },
        reinterpret_cast<LPARAM>(&search));
    return search.found;
}
} // namespace automation
