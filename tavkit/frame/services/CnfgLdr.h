// CnfgLdr.h - the product configuration: what the workbench is delivered with
#pragma once

#include <memory>

#include "tavkit/frame/services/DFile.h"
#include "tavkit/frame/services/DString.h"

/// Settings of the product, read from the file beside the program:
/// @code
/// <Product>
///   <Folder category="Images" path="InstallDir\Examples;My Documents"/>
///   <TextBlock name="About" x="20" y="16" font="Tahoma" height="18" weight="700" color="#203040" text="TavKit"/>
/// </Product>
/// @endcode
/// A block's attributes but its name may be missing. Other elements are passed over. What the file doesn't name is left
/// to the caller's default.
class TAVHOST_API CnfgLdr
{
public:
    static constexpr char const* kFileName = "Product.xml"; ///< name of the file in the installation folder

    /// A text at a place of a picture. The fields are part of the interface, in this order.
    struct TextBlock
    {
        int x = 0;                     ///< left edge in pixels
        int y = 0;                     ///< top edge in pixels
        char const* pszFont = nullptr; ///< face name, owned by the configuration; null counts as ""
        int nHeight = 0;               ///< height of the font in pixels
        int nWeight = 0;               ///< weight of the font, 400 normal, 700 bold
        unsigned long crColor = 0;     ///< colour 0x00BBGGRR
        DString strText;               ///< the text
    };

    /// The one configuration of the process; the first call loads the file in the installation folder.
    static CnfgLdr* Instance();

    /// Loads another file in place of what is there.
    /// @return false if it can't be read or isn't a product configuration; nothing is configured then.
    bool Load(DFile const& file);
    /// Forgets everything: every caller's default holds.
    void Reset();

    /// The default folders of a category, separated by ";"; @p dflt if the product names none.
    [[nodiscard]] DString GetDfltFldr(DString const& key, char const* dflt) const;
    /// The text block of that name; null if there is none. Valid until the next Load or Reset.
    [[nodiscard]] TextBlock const* GetTextBlock(char const* name) const;

private:
    struct Data;

    CnfgLdr();
    ~CnfgLdr();

    std::unique_ptr<Data> m_pData;
};
