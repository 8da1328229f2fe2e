// ImportHook.h - sees the calls that a module makes to another: its import table is changed for a while
#pragma once

#include <windows.h>

/// While it lives, a module's calls to one imported function go to a replacement, which may call the function itself.
class ImportHook
{
public:
    /// @param module    the module whose calls are to be seen, such as "TavKit.dll"
    /// @param provider  the module that it imports from, such as "user32.dll"
    /// The test fails when the module doesn't import that function.
    ImportHook(char const* module, char const* provider, char const* function, void* replacement);
    ~ImportHook();
    ImportHook(ImportHook const&) = delete;
    ImportHook& operator=(ImportHook const&) = delete;

private:
    void Set(void* function);

    void** m_slot = nullptr;
    void* m_original = nullptr;
};
