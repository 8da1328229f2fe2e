// CnfgLdr.h - the product configuration: what the workbench is delivered with
#pragma once

#include <memory>
#include <vector>

#include "tavkit/frame/services/DFile.h"
#include "tavkit/frame/services/DString.h"
#include "tavkit/frame/services/Wksp.h"

/// Settings of the product, read from the file beside the program:
/// @code
/// <Product>
///   <Folder category="Images" path="InstallDir\Examples;My Documents"/>
///   <TextBlock name="About" x="20" y="16" font="Tahoma" height="18" weight="700" color="#203040" text="TavKit"/>
///   <Plugin name="Pictures">
///     <Format id="TIF" name="TIF" pattern="*.tif;*.tiff" data="raster" access="both"/>
///   </Plugin>
///   <CustomImport name="Slides" description="..." format="TIFF">
///     <Param text="{1}_slides.tif"/>
///     <Layer name="Tissue" file="*_slides.tif" driver="TIFF"/>
///   </CustomImport>
/// </Product>
/// @endcode
/// A block's attributes but its name may be missing. So may "id", "data" (words of "raster", "vector", "table" and
/// "metadata", separated by blanks; all kinds without it) and "access" ("load", "save" or "both", as without it) of a
/// format, and all but the name of a custom import and its parts. Other elements are passed over. What the file doesn't
/// name is left to the caller's default.
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

    /// A file format that a plug-in reads or writes.
    struct PluginFrmt
    {
        DString strId;
        DString strName;
        DString strPattern;
        unsigned int nDataType; ///< bits of BDINodeKind; bdiOther for metadata
        bool bLoad;
        bool bSave;
    };

    /// A plug-in of the product.
    struct Plugin
    {
        DString strName;
        std::vector<PluginFrmt> vecFrmt;
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
    /// The plug-ins in the order of the file. Valid until the next Load or Reset.
    [[nodiscard]] std::vector<Plugin> const& GetPlugins() const;
    /// The definitions of the custom imports in the order of the file. Valid until the next Load or Reset.
    [[nodiscard]] std::vector<CustImport::Dfntn> const& GetCustImports() const;

private:
    struct Data;

    CnfgLdr();
    ~CnfgLdr();

    std::unique_ptr<Data> m_pData;
};
