#include "ImportHook.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>

namespace
{

template <class T>
T* At(HMODULE module, std::uint64_t offset)
{
    return reinterpret_cast<T*>(reinterpret_cast<unsigned char*>(module) + offset);
}

// The place in the import table that holds the function's address; null when the module doesn't import it.
void** FindSlot(HMODULE module, char const* provider, char const* function)
{
    auto const* header = At<IMAGE_NT_HEADERS>(module, At<IMAGE_DOS_HEADER>(module, 0)->e_lfanew);
    auto const& directory = header->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
    for (auto* import = At<IMAGE_IMPORT_DESCRIPTOR>(module, directory.VirtualAddress); import->Name != 0; ++import)
    {
        if (_stricmp(At<char>(module, import->Name), provider) != 0)
        {
            continue;
        }
        auto* name = At<IMAGE_THUNK_DATA>(module, import->OriginalFirstThunk);
        auto* slot = At<IMAGE_THUNK_DATA>(module, import->FirstThunk);
        for (; name->u1.AddressOfData != 0; ++name, ++slot)
        {
            if (!IMAGE_SNAP_BY_ORDINAL(name->u1.Ordinal) &&
                std::strcmp(reinterpret_cast<char*>(At<IMAGE_IMPORT_BY_NAME>(module, name->u1.AddressOfData)->Name),
                            function) == 0)
            {
                return reinterpret_cast<void**>(&slot->u1.Function);
            }
        }
    }
    return nullptr;
}

} // namespace

ImportHook::ImportHook(char const* module, char const* provider, char const* function, void* replacement)
{
    if (HMODULE const handle = ::GetModuleHandleA(module))
    {
        m_slot = FindSlot(handle, provider, function);
    }
    EXPECT_NE(m_slot, nullptr) << module << " doesn't call " << function;
    if (m_slot != nullptr)
    {
        m_original = *m_slot;
        Set(replacement);
    }
}

ImportHook::~ImportHook()
{
    if (m_slot != nullptr)
    {
        Set(m_original);
    }
}

void ImportHook::Set(void* function)
{
    DWORD protection = 0;
    ::VirtualProtect(m_slot, sizeof *m_slot, PAGE_READWRITE, &protection);
    *m_slot = function;
    ::VirtualProtect(m_slot, sizeof *m_slot, protection, &protection);
}
