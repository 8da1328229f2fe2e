// PluginOpeners.cpp - FileDlg's questions for data in the formats of plug-ins
#include "tavkit/filedlg/FileDlg.h"
#include "tavkit/filedlg/FolderSetting.h"
#include "tavkit/filedlg/FormatCatalogue.h"
#include "tavkit/filedlg/FormatOffer.h"
#include "tavkit/filedlg/OpenerRules.h"

#include "tavkit/frame/services/BDIDrvrMngr.h"

using tavkit::ReadFldrSttng;
using tavkit::TitleRule;

namespace
{

// Profile keys and defaults of the formats last used. That of rasters is kept by name, the others by identifier, though
// the default reads like an identifier throughout: so be it, profiles are written that way.
constexpr char kRasterFormatKey[] = "Raster File Type";
constexpr char kRasterFormatName[] = "TIF";
constexpr char kThematicFormatKey[] = "Labeled Raster File Type";
constexpr char kThematicFormatId[] = "TIF";
constexpr char kTableFormatKey[] = "Labeled Attribute File Type";
constexpr char kTableFormatId[] = "CSV";
constexpr char kMetaFormatKey[] = "MetaData File Type";
constexpr char kMetaFormatId[] = "INI";

/// Formats that a single plug-in brings, deleted at the end of the block.
class PluginFormats
{
public:
    PluginFormats() = default;
    PluginFormats(PluginFormats const&) = delete;
    PluginFormats& operator=(PluginFormats const&) = delete;
    ~PluginFormats()
    {
        for (DFileFrmt const* const format : m_list)
        {
            delete format;
        }
    }

    /// Asks the plug-in of that name, if there is one.
    void Build(DIOPluginMngr* mngr, char const* plugin, unsigned int dataType, ICheck<DString>* check)
    {
        for (DIOPluginMngr::DriverItr itr(mngr); itr.m_pCrnt; itr.Next())
        {
            if (DString(itr.m_pCrnt->GetName()) == plugin)
            {
                itr.m_pCrnt->BuildFrmtList(&m_list, FileDlg::kLoad, dataType, check);
                while (m_list.Remove(nullptr)) // a plug-in may know no better
                {
                }
                return;
            }
        }
    }

    /// The format for files with that extension, otherwise the first one; null without any.
    /// @param extn  without the dot; null or empty for none in particular
    [[nodiscard]] DFileFrmt const* Find(char const* extn) const
    {
        if (m_list.IsEmpty())
        {
            return nullptr;
        }
        for (DFileFrmt const* const format : m_list)
        {
            if (extn && *extn && DFile(format->m_strPattern.c_str()).GetPhysFileExtn() == extn)
            {
                return format;
            }
        }
        return m_list.m_pHead->m_val;
    }

private:
    DList<DFileFrmt*> m_list;
};

} // namespace

// Steps that several openers take

void FileDlg::BeginPluginOffer(int nodeType)
{
    // A chosen format that belongs to the offer before goes with it.
    for (DFileFrmt const* const format : m_lstPluginFrmts)
    {
        if (format == m_pFrmt)
        {
            m_pFrmt = nullptr;
        }
    }
    Reset();
    m_nNodeType = nodeType;
}

void FileDlg::OfferOfPlugins(DIOPluginMngr* mngr, int mode, ICheck<DString>* check)
{
    if (mode == kLoad)
    {
        AddDscr(&tavkit::FileFrmtAll, false);
    }
    AddIOPluginFilters(mngr, mode, check);
}

void FileDlg::Withdraw(char const* id) { RmvDscr(tavkit::FindById(m_vecDscr, id)); }

DString FileDlg::FormatIdToBeginWith(char const* key, char const* dflt) const
{
    return m_strInitFrmtId.IsEmpty() ? DString(ReadFldrSttng(key, dflt)) : m_strInitFrmtId;
}

void FileDlg::StoreFormatId(char const* key) const
{
    if (m_pFrmt && m_pFrmt != &tavkit::FileFrmtAll)
    {
        tavkit::WriteFldrSttng(key, m_pFrmt->m_strId.c_str());
    }
}

// The openers

bool FileDlg::OpenRasterData(DIOPluginMngr* mngr, int mode, bool bMulti, bool bSaveDir, ICheck<DString>* check)
{
    constexpr char kFolderKey[] = "Raster Files";
    BeginPluginOffer(bdiRaster);
    OfferOfPlugins(mngr, mode, check);
    if (mode == kSave)
    {
        Withdraw("ASC"); // is only read
    }
    BeginInStoredFolder(kFolderKey);
    m_pFrmt = m_strInitFrmtId.IsEmpty() ? GetFormatByName(ReadFldrSttng(kRasterFormatKey, kRasterFormatName))
                                        : GetFormat(m_strInitFrmtId.c_str());
    if (bMulti)
    {
        m_bMultiple = true;
    }
    SetTitle({m_bMultiple ? "Import Image Layers..." : "Import Image Layer...", "Export Image Layer..."},
             TitleRule::IfEmpty, mode);
    if (!ShowFileDlg(mode, "ImageFolders"))
    {
        return false;
    }
    if (bSaveDir)
    {
        StoreFolder(kFolderKey);
    }
    if (m_pFrmt)
    {
        tavkit::WriteFldrSttng(kRasterFormatKey, m_pFrmt->m_strName.c_str()); // "All Files" too
    }
    return true;
}

bool FileDlg::OpenGisObjects(DIOPluginMngr* mngr, int mode, bool bVector)
{
    constexpr char kFolderKey[] = "Projects";
    BeginPluginOffer(bdiRaster | bdiVector);
    OfferOfPlugins(mngr, mode, nullptr);
    if (bVector)
    {
        OfferAll({&tavkit::FileFrmtShape, &tavkit::FileFrmtAperio});
        if (BDIDrvrMngr::Instance()->FindDriverByFrmt(tavkit::FileFrmtConn.m_strId.c_str()))
        {
            OfferAll({&tavkit::FileFrmtConn});
        }
    }
    BeginInStoredFolder(kFolderKey);
    m_pFrmt = GetFormat(FormatIdToBeginWith(kThematicFormatKey, kThematicFormatId).c_str());
    SetTitle({m_bMultiple ? "Add Thematic Layers..." : "Import Thematic Layer...", "Export Thematic Layer..."},
             TitleRule::IfEmpty, mode);
    if (!ShowFileDlg(mode, "ThematicFolders"))
    {
        return false;
    }
    StoreFormatId(kThematicFormatKey);
    StoreFolder(kFolderKey);
    return true;
}

bool FileDlg::OpenAttrData(DIOPluginMngr* mngr, int mode, CString const& label)
{
    constexpr char kFolders[] = "ThematicFolders"; // the category is the folder's key too
    BeginPluginOffer(bdiTable);
    OfferOfPlugins(mngr, mode, nullptr);
    Withdraw("IMG"); // holds pictures
    if (mode == kLoad)
    {
        OfferAll({&tavkit::FileFrmtAscii});
    }
    BeginInStoredFolder(kFolders);
    m_pFrmt = GetFormat(FormatIdToBeginWith(kTableFormatKey, kTableFormatId).c_str());
    SetLabelledTitle(mode, label);
    if (!ShowFileDlg(mode, kFolders))
    {
        return false;
    }
    StoreFormatId(kTableFormatKey);
    StoreFolder(kFolders);
    return true;
}

bool FileDlg::OpenMetaData(DIOPluginMngr* mngr, ICheck<DString>* check, char const* plugin, char const* extn)
{
    BeginPluginOffer(bdiTable);
    AddIOPluginFilters(mngr, kLoad, check);
    DString id = FormatIdToBeginWith(kMetaFormatKey, kMetaFormatId);
    if (plugin && *plugin)
    {
        PluginFormats formats;
        formats.Build(mngr, plugin, m_nDataType, check);
        if (DFileFrmt const* const format = formats.Find(extn))
        {
            id = format->m_strId;
        }
    }
    if (!id.IsEmpty())
    {
        m_pFrmt = GetFormat(id.c_str());
    }
    SetTitle({"Import MetaData...", ""}, TitleRule::IfEmpty, kLoad);
    if (!ShowFileDlg(kLoad, "ImageFolders"))
    {
        return false;
    }
    if (m_pFrmt)
    {
        tavkit::WriteFldrSttng(kMetaFormatKey, m_pFrmt->m_strId.c_str());
    }
    return true;
}
