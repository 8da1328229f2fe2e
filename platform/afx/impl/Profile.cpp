// Profile.cpp - settings in the registry or in an INI file
#include "impl/Profile.h"
#include <algorithm>
#include <climits>
#include <shlwapi.h>
#include <string>
#include <utility>

namespace
{
// The platform's INI functions count a line in 16 bits of wide characters; some break on a longer one.
constexpr size_t kLongestIniLine = 32000;

// Closes a registry key at the end of the block.
class RegistryKey
{
public:
    explicit RegistryKey(HKEY hKey) : m_hKey(hKey) {}
    ~RegistryKey()
    {
        if (m_hKey != nullptr)
        {
            ::RegCloseKey(m_hKey);
        }
    }
    RegistryKey(const RegistryKey&) = delete;
    void operator=(const RegistryKey&) = delete;
    operator HKEY() const { return m_hKey; }

private:
    HKEY m_hKey;
};

HKEY OpenForReading(LPCTSTR lpszPath)
{
    HKEY hKey = nullptr;
    return ::RegOpenKeyExA(HKEY_CURRENT_USER, lpszPath, 0, KEY_QUERY_VALUE, &hKey) == ERROR_SUCCESS ? hKey : nullptr;
}

HKEY Make(LPCTSTR lpszPath)
{
    HKEY hKey = nullptr;
    const LONG nResult = ::RegCreateKeyExA(HKEY_CURRENT_USER, lpszPath, 0, nullptr, REG_OPTION_NON_VOLATILE,
                                           KEY_READ | KEY_WRITE, nullptr, &hKey, nullptr);
    return nResult == ERROR_SUCCESS ? hKey : nullptr;
}

bool ReadText(HKEY hKey, LPCTSTR lpszEntry, CString& text)
{
    std::string data;
    DWORD nType = REG_NONE;
    DWORD nBytes = 0;
    LONG nResult = ::RegQueryValueExA(hKey, lpszEntry, nullptr, &nType, nullptr, &nBytes);
    do // another process may write a longer value between the two questions
    {
        if (nResult != ERROR_SUCCESS && nResult != ERROR_MORE_DATA)
        {
            return false;
        }
        data.resize(nBytes);
        nResult = ::RegQueryValueExA(hKey, lpszEntry, nullptr, &nType, reinterpret_cast<BYTE*>(data.data()), &nBytes);
    } while (nResult == ERROR_MORE_DATA);
    if (nResult != ERROR_SUCCESS || nType != REG_SZ)
    {
        return false;
    }
    data.resize(std::min<size_t>(nBytes, data.size()));
    text = data.c_str(); // a value that another program stored may lack its terminator
    return true;
}

CString ReadIniText(LPCTSTR lpszFile, LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszDefault)
{
    constexpr DWORD kFirstSize = 1024;
    constexpr DWORD kLargestSize = 64U << 20;
    CString text;
    for (DWORD nSize = kFirstSize;; nSize *= 2)
    {
        const DWORD nLength = ::GetPrivateProfileStringA(lpszSection, lpszEntry, lpszDefault,
                                                         text.GetBuffer(static_cast<int>(nSize)), nSize, lpszFile);
        text.ReleaseBuffer(static_cast<int>(nLength));
        if (nLength + 1 < nSize || nSize >= kLargestSize) // a text that was cut fills the buffer
        {
            return text;
        }
    }
}
} // namespace

AfxProfile::AfxProfile(CString registryKey, CString profileName)
    : m_registryKey(std::move(registryKey)), m_profileName(std::move(profileName))
{
}

UINT AfxProfile::GetInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nDefault) const
{
    if (lpszSection == nullptr || lpszEntry == nullptr)
    {
        return static_cast<UINT>(nDefault);
    }
    if (!InRegistry())
    {
        return ::GetPrivateProfileIntA(lpszSection, lpszEntry, nDefault, m_profileName);
    }
    const RegistryKey key(OpenForReading(SectionPath(lpszSection)));
    DWORD nValue = 0;
    DWORD nType = REG_NONE;
    DWORD nBytes = sizeof nValue;
    const bool found = key != nullptr &&
                       ::RegQueryValueExA(key, lpszEntry, nullptr, &nType, reinterpret_cast<BYTE*>(&nValue), &nBytes) ==
                           ERROR_SUCCESS &&
                       nType == REG_DWORD && nBytes == sizeof nValue;
    return found ? nValue : static_cast<UINT>(nDefault);
}

CString AfxProfile::GetString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszDefault) const
{
    if (lpszSection == nullptr || lpszEntry == nullptr)
    {
        return lpszDefault;
    }
    if (!InRegistry())
    {
        return ReadIniText(m_profileName, lpszSection, lpszEntry, lpszDefault == nullptr ? "" : lpszDefault);
    }
    const RegistryKey key(OpenForReading(SectionPath(lpszSection)));
    CString text;
    return key != nullptr && ReadText(key, lpszEntry, text) ? text : CString(lpszDefault);
}

BOOL AfxProfile::WriteInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nValue) const
{
    if (lpszSection == nullptr || lpszEntry == nullptr)
    {
        return FALSE;
    }
    if (!InRegistry())
    {
        return ::WritePrivateProfileStringA(lpszSection, lpszEntry, std::to_string(nValue).c_str(), m_profileName);
    }
    const RegistryKey key(OpenSectionKey(lpszSection));
    return key != nullptr && ::RegSetValueExA(key, lpszEntry, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&nValue),
                                              sizeof nValue) == ERROR_SUCCESS;
}

BOOL AfxProfile::WriteString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszValue) const
{
    if (lpszSection == nullptr)
    {
        return FALSE;
    }
    if (!InRegistry())
    {
        if (lpszEntry != nullptr && lpszValue != nullptr &&
            std::strlen(lpszEntry) + std::strlen(lpszValue) > kLongestIniLine)
        {
            return FALSE;
        }
        return ::WritePrivateProfileStringA(lpszSection, lpszEntry, lpszValue, m_profileName);
    }
    if (lpszEntry == nullptr)
    {
        // An empty name would stand for the application's key itself.
        return lpszSection[0] != '\0' && ::SHDeleteKeyA(HKEY_CURRENT_USER, SectionPath(lpszSection)) == ERROR_SUCCESS;
    }
    const RegistryKey key(OpenSectionKey(lpszSection));
    if (key == nullptr)
    {
        return FALSE;
    }
    if (lpszValue == nullptr)
    {
        return ::RegDeleteValueA(key, lpszEntry) == ERROR_SUCCESS;
    }
    const size_t nBytes = std::strlen(lpszValue) + 1;
    return nBytes <= MAXDWORD && ::RegSetValueExA(key, lpszEntry, 0, REG_SZ, reinterpret_cast<const BYTE*>(lpszValue),
                                                  static_cast<DWORD>(nBytes)) == ERROR_SUCCESS;
}

HKEY AfxProfile::OpenAppKey() const { return InRegistry() ? Make(AppPath()) : nullptr; }

HKEY AfxProfile::OpenSectionKey(LPCTSTR lpszSection) const
{
    return InRegistry() && lpszSection != nullptr ? Make(SectionPath(lpszSection)) : nullptr;
}

CString AfxProfile::AppPath() const { return "Software\\" + m_registryKey + "\\" + m_profileName; }

CString AfxProfile::SectionPath(LPCTSTR lpszSection) const
{
    return lpszSection[0] == '\0' ? AppPath() : AppPath() + "\\" + lpszSection;
}
