// DCnfg.cpp - stores of named texts, in the registry
#include "tavkit/frame/services/DCnfg.h"

#include <optional>
#include <string>

#include <windows.h>

namespace
{
constexpr int kMaxNameLength = 16383;      ///< characters of a value's name, as the registry documents it
constexpr std::size_t kUsualLength = 1024; ///< bytes that are asked for first; most texts are shorter
constexpr char const* kProductKey = "Software\\TavKit\\Workbench";

/// The text stored under a name; nothing if there is none or it is of another type.
std::optional<std::string> ReadText(HKEY store, char const* name)
{
    std::string text(kUsualLength, '\0');
    for (;;)
    {
        DWORD type = REG_NONE;
        auto size = static_cast<DWORD>(text.size());
        const LSTATUS status =
            ::RegQueryValueExA(store, name, nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &size);
        if (type != REG_SZ || (status != ERROR_SUCCESS && status != ERROR_MORE_DATA))
        {
            return std::nullopt;
        }
        text.resize(size); // after too small a buffer, what it should have been; another process may change it again
        if (status == ERROR_SUCCESS)
        {
            return text.substr(0, text.find('\0')); // whoever wrote it needn't have closed it
        }
    }
}
} // namespace

DCnfg::DCnfg(DString const& path, bool bCreate, bool bReadOnly) : m_bReadOnly(bReadOnly)
{
    HKEY key = nullptr;
    const REGSAM access = KEY_QUERY_VALUE | (bReadOnly ? 0 : KEY_SET_VALUE);
    const LSTATUS status = bCreate ? ::RegCreateKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, nullptr,
                                                       REG_OPTION_NON_VOLATILE, access, nullptr, &key, nullptr)
                                   : ::RegOpenKeyExA(HKEY_CURRENT_USER, path.c_str(), 0, access, &key);
    if (status == ERROR_SUCCESS)
    {
        m_hKey = key;
    }
}

DCnfg::~DCnfg()
{
    if (m_hKey)
    {
        ::RegCloseKey(static_cast<HKEY>(m_hKey));
    }
}

bool DCnfg::HasKey(DString const& key) const
{
    return m_hKey && ReadText(static_cast<HKEY>(m_hKey), key.c_str()).has_value();
}

DString DCnfg::ReadString(DString const& key, DString const& dflt) const
{
    if (m_hKey)
    {
        if (const std::optional<std::string> text = ReadText(static_cast<HKEY>(m_hKey), key.c_str()))
        {
            return text->c_str();
        }
    }
    return dflt;
}

bool DCnfg::WriteString(DString const& key, DString const& value)
{
    if (!m_hKey || m_bReadOnly || key.GetLength() > kMaxNameLength)
    {
        return false;
    }
    const auto size = static_cast<DWORD>(value.GetLength()) + 1;
    return ::RegSetValueExA(static_cast<HKEY>(m_hKey), key.c_str(), 0, REG_SZ,
                            reinterpret_cast<BYTE const*>(value.c_str()), size) == ERROR_SUCCESS;
}

DUserCnfg::DUserCnfg(DString const& section, bool bCreate, bool bReadOnly)
    : DCnfg(section.IsEmpty() ? DString(kProductKey) : kProductKey + ("\\" + section), bCreate, bReadOnly)
{
}

DUserCnfg::~DUserCnfg() = default;
