// DCnfg.h - named text values that survive the process
#pragma once

#include "tavkit/frame/services/DString.h"

/// A store of named text values. A value that isn't text reads as missing.
class TAVHOST_API DCnfg
{
public:
    DCnfg(DCnfg const&) = delete;
    DCnfg& operator=(DCnfg const&) = delete;
    virtual ~DCnfg();

    /// True if the store holds a text under @p key.
    [[nodiscard]] bool HasKey(DString const& key) const;
    /// The text under @p key, of any length; @p dflt when there is none.
    [[nodiscard]] DString ReadString(DString const& key, DString const& dflt) const;
    /// Stores @p value under @p key. False if the store is read-only, isn't open, or refuses.
    bool WriteString(DString const& key, DString const& value);

protected:
    /// Opens the store at @p path below the current user's part of the registry.
    DCnfg(DString const& path, bool bCreate, bool bReadOnly);

private:
    void* m_hKey = nullptr; ///< registry key, null if the store isn't there
    bool m_bReadOnly;
};

/// The current user's store for one section of the workbench's settings.
class TAVHOST_API DUserCnfg : public DCnfg
{
public:
    /// Opens the section.
    /// @param section    name of the section; "\" in it opens a section within a section.
    /// @param bCreate    make the section if it is missing; without it a missing section reads as empty.
    /// @param bReadOnly  refuse to write.
    DUserCnfg(DString const& section, bool bCreate, bool bReadOnly);
    ~DUserCnfg() override;
};
