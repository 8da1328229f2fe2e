// Profile.h - the application's settings: the registry below the company's key, or an INI file
#pragma once

#include "afx.h"

/// Where an application's settings lie. Without a company key they lie in an INI file. Nothing is kept open.
class TAVAFX_API AfxProfile
{
public:
    /// @param registryKey  company's name below HKEY_CURRENT_USER\Software; empty: an INI file
    /// @param profileName  application's name in the registry, or the INI file (without a folder: the Windows folder)
    AfxProfile(CString registryKey, CString profileName);

    // A section may name nested keys, separated by backslashes. Null sections, and null entries when reading, answer
    // the default; so do missing values and values of another type. Reading makes no keys.

    /// Negative numbers come back as they were written.
    UINT GetInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nDefault) const;
    CString GetString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszDefault) const;
    BOOL WriteInt(LPCTSTR lpszSection, LPCTSTR lpszEntry, int nValue) const;
    /// A null entry deletes the section with all below it, a null value deletes the entry.
    /// The registry takes texts of any length, an INI file a line of 32000 bytes.
    /// @return FALSE, and everything as it was, when the store refused, and when the registry had nothing to delete.
    BOOL WriteString(LPCTSTR lpszSection, LPCTSTR lpszEntry, LPCTSTR lpszValue) const;

    /// Opens (and makes) the application's key. The caller closes it. @return null without a company key, or on
    /// failure.
    HKEY OpenAppKey() const;
    /// Opens (and makes) a section's key. The caller closes it. @return null as OpenAppKey, and for a null section.
    HKEY OpenSectionKey(LPCTSTR lpszSection) const;

private:
    bool InRegistry() const { return !m_registryKey.IsEmpty(); }
    CString AppPath() const;
    CString SectionPath(LPCTSTR lpszSection) const;

    CString m_registryKey;
    CString m_profileName;
};
