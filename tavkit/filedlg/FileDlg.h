// FileDlg.h - asks the user for files of the workbench's kinds
#pragma once

#include <afxwin.h>

#include "tavkit/frame/Export.h"
#include "tavkit/frame/services/BDIMoniker.h"
#include "tavkit/frame/services/DFile.h"
#include "tavkit/frame/services/DFileFrmt.h"
#include "tavkit/frame/services/DIOPlugin.h"
#include "tavkit/frame/services/DList.h"
#include "tavkit/frame/services/DString.h"
#include "tavkit/frame/services/DVector.h"

#include <initializer_list>
#include <memory>

namespace tavkit
{
struct OwnData;
struct Titles;
enum class TitleRule;
} // namespace tavkit

/// One question for files: which formats are offered, and what came of it. The result is a list of monikers that the
/// object owns until GetFileRmv hands one over. `mode` is 0 for loading and 1 for saving everywhere; other values are
/// neither.
///
/// A copy has the same formats and monikers, not copies of them, and both objects would delete them: copy an object
/// only while it has neither a result nor formats of plug-ins.
class TAVKIT_API FileDlg
{
public:
    static constexpr int kLoad = 0;                      ///< mode
    static constexpr int kSave = 1;                      ///< mode
    static constexpr int kFilterSize = 8192;             ///< bytes of the filter text, its NUL included
    static constexpr int kSelectionSize = 32768;         ///< bytes of the picked files' names, their NULs included
    static constexpr unsigned int kAllData = 0xFFFFFFFF; ///< data type word: whatever there is

    /// A ready-made offer of formats.
    enum EFormat
    {
        frmtAscii = 0,
        frmtCSV = 1,
        frmtShape = 2,
        frmtHTML = 3,
        frmtSnippet = 4
    };

    // The workbench's own formats. The host sets them at its start and keeps what they point to; a null pointer says
    // that the workbench has no such data.
    static DFileFrmt* pFrmt_workspace;
    static DFileFrmt* pFrmt_dm_dbfile;       ///< DM database
    static DFileFrmt* pFrmt_prjct;           ///< project
    static DFileFrmt* pFrmt_clss_hrchy;      ///< class hierarchy
    static DFileFrmt* pFrmt_clss_hrchy_user; ///< class hierarchy of the user
    static DFileFrmt* pFrmt_prtcl;           ///< protocol
    static DFileFrmt* pFrmt_user_prop;       ///< customized features
    static DFileFrmt* pFrmt_proc;            ///< process
    static DFileFrmt* pFrmt_wzrd;            ///< wizard definition
    static DFileFrmt* pFrmt_paramset;        ///< parameter set
    static DFileFrmt* pFrmt_anly;            ///< analysis solution
    static DFileFrmt* pFrmt_jobsqnce;        ///< job sequence
    static DFileFrmt* pFrmt_platelayout;     ///< plate layout
    static DFileFrmt* pFrmt_TMAlayout;       ///< TMA grid layouts
    static DFileFrmt* pFrmt_TMAmatch;        ///< TMA matching
    static DFileFrmt* pFrmt_dosedilutionsec; ///< dose dilution sequence
    static DFileFrmt* pFrmt_actnlib;         ///< action library
    static DFileFrmt* pFrmt_snpts;           ///< snippets; for the host alone
    static DFileFrmt* pFrmt_textsttng;       ///< text rendering settings

    FileDlg();
    /// @param caption  title of the dialog
    FileDlg(CString const& caption);
    FileDlg(FileDlg const& other);
    FileDlg& operator=(FileDlg const& other);
    /// Deletes the monikers that are left and the formats of plug-ins.
    ~FileDlg();

    // Options, set before the question is asked. Null texts are empty.

    void SetCaption(char const* caption);
    /// @param type  bits of the data types that plug-ins are asked for
    void SetDataType(unsigned int type);
    /// Lets the user pick several files; there is no way back.
    void SetMultipleFiles();
    /// Locks the dialog to its folder; there is no way back. While the dialog is up, other lists of the thread may lose
    /// rows that name no file.
    void SetNoChangeDir();
    /// Whether the user is asked before a file is overwritten; the default is that he is.
    void ShowOverwritePrompt(bool show);
    /// @param id  template of the extra panel; 0 for the usual one
    void SetDlgTmplId(int id);
    void SetOptions(DString& options);
    /// @param file  a file, a folder or a path to begin with
    void SetInitFile(char const* file);
    /// @param id  identifier of the format to begin with
    void SetInitFrmtId(char const* id);
    /// @param format  to begin with; borrowed
    void SetFormat(DFileFrmt* format);

    // Openers: each asks for one kind of data. They answer true if the result stands, and false if the user cancelled
    // or there is nothing to ask for: a format of the workbench's own that is null shows no dialog. The initial file
    // that was set is kept; without one most begin in the folder that was last used for that kind of data, and store
    // the folder of the first result. Null texts are empty. After a question that was cancelled nothing is stored.

    /// Asks with a filter text of the caller's.
    /// @param filter  every name and every pattern with a bar behind it; may be null. The formats on offer play no
    /// part.
    /// @param defExt  the first pattern that contains it is preselected; null for the initial file's extension
    bool OpenFileDlg(int mode, char const* filter, char const* defExt);
    /// Asks with a ready-made offer and all files.
    /// @param file  name to begin with; may be null
    /// @param dir   folder to begin with, unless one is stored; may be null
    /// @param key   the folder is stored under it in the profile; null or empty for no folder
    bool Open(int mode, FileDlg::EFormat format, char const* file, char const* dir, char const* key);
    /// The same with the extension of the file's name for a format. GetFormat() isn't to be used afterwards.
    bool Open(int mode, char const* file, char const* dir, char const* key);
    /// Asks for files of any kind; no folder is stored.
    bool OpenAll(int mode);

    // The workbench's own data

    bool OpenAnlySltn(int mode);
    bool OpenDMDatabase(int mode);
    /// For loading, whatever panel was set gives way to the one with "Project-Edit" and "Read-Only".
    bool OpenWorkspace(int mode);
    bool OpenTMAMatch(int mode);
    bool OpenTMAGridLayt(int mode);
    bool OpenPltLayt(int mode);
    bool OpenTextSttng(int mode);
    bool OpenDoseDilutionSec(int mode);
    bool OpenPrjct(int mode);
    bool OpenClssHrchy(int mode);
    bool OpenClssHrchyUser(int mode);
    bool OpenProcess(int mode);
    bool OpenJobSqnce(int mode);
    bool OpenPrtcl(int mode);
    bool OpenUserProps(int mode);
    /// An initial file without a folder is looked for in the stored one.
    /// @param caption  null for the usual one
    bool OpenParamSet(int mode, char const* caption);
    /// Loads. The folder used last goes before the default one, which is only read.
    bool OpenWzrd();
    /// Asks for a folder, in the shell's browser, and takes the first library in it behind what the result holds. Only
    /// for loading. With a chosen format, the library gets the driver that is called as the workbench's own format.
    bool OpenActnLib(int mode);
    /// Asks for rule sets of all kinds at once. There is no chosen format afterwards.
    /// @param bJobSqnce  job sequences too
    bool OpenAllRuleset(int mode, bool bJobSqnce);

    // Data that the caller calls by a name, which stands behind "Load " or "Save " in the caption

    bool OpenTableData(int mode, CString const& label);
    bool OpenTiffData(int mode, CString const& label);
    bool OpenXMLData(int mode, CString const& label);
    bool OpenArcSDEConnFile(int mode, CString const& label);

    // Data in the formats that plug-ins bring, or without a manager the custom imports of the workspace. Whatever was
    // on offer before is gone. The chosen format is stored and begun with the next time, unless an initial one was set.

    /// Asks for pictures.
    /// @param bMulti    several files may be picked
    /// @param bSaveDir  the folder is stored
    /// @param check     asked about every format; may be null
    bool OpenRasterData(DIOPluginMngr* mngr, int mode, bool bMulti, bool bSaveDir, ICheck<DString>* check);
    /// Asks for pictures or vector data.
    /// @param bVector  offers the library's own vector formats too
    bool OpenGisObjects(DIOPluginMngr* mngr, int mode, bool bVector);
    /// Asks for tables.
    /// @param label  stands behind "Load " or "Save " in the caption
    bool OpenAttrData(DIOPluginMngr* mngr, int mode, CString const& label);
    /// Asks for metadata to load; no folder is stored.
    /// @param check   asked about every format; may be null
    /// @param plugin  name of the plug-in whose format is begun with; null, empty or unknown for the stored format
    /// @param extn    of its formats the one for this extension, without dot, otherwise the first; may be null
    bool OpenMetaData(DIOPluginMngr* mngr, ICheck<DString>* check, char const* plugin, char const* extn);

    // What is only saved

    bool OpenSaveCSV(char const* caption);
    bool OpenSaveHTML(char const* caption);

    // The answer

    /// The format that was chosen; null for none.
    [[nodiscard]] DFileFrmt* GetFormat() const;
    [[nodiscard]] bool GetChckReadOnly() const;
    [[nodiscard]] bool GetChckEditOnly() const;
    [[nodiscard]] int GetNumSlctFiles() const;
    /// @param index  below GetNumSlctFiles()
    /// @return still owned by this object
    [[nodiscard]] BDIMoniker* GetFile(int index) const;
    /// Takes a moniker out; the rest keeps its order.
    /// @param index  below GetNumSlctFiles()
    /// @return the caller's to delete
    [[nodiscard]] BDIMoniker* GetFileRmv(int index);
    /// The text of the first moniker, options included; "." without one. Ask only after a question that was answered.
    [[nodiscard]] CString GetPhysFile();
    /// The identifier by which the raster service reads the chosen format: what the custom import of that name says of
    /// its first layer, otherwise the format's own. "" without a format.
    [[nodiscard]] DString GetImgDrvrID();
    /// Orders the monikers by display name, byte by byte; equal names keep their order.
    void SortData();

    /// Makes monikers of picked files: ties them to the driver of the format, appends the options ("a.tif?page=1", or
    /// behind "&" if there are some already) and, for loading, looks into them. Of several files, one that holds items
    /// of the kinds asked for gives way to these, which come last. A single one that holds such items makes the user
    /// choose among them. Items that turn out to be of another kind lose their driver; if tables are asked for, the
    /// first such item that holds something gives way to the first thing in it, and the items behind it aren't looked
    /// at.
    /// @param nodeType  kinds of nodes that are asked for, bits of BDINodeKind
    /// @param format    may be null: no driver then
    /// @param defExt    default pattern of the dialog; may be null
    /// @param monikers  receives the result behind what it holds; the caller's to delete
    /// @param options   may be null
    /// @return false if the user chose nothing
    static bool ResolveBDI(int mode, int nodeType, DFileFrmt* format, DString const& caption,
                           DVectorSafe<DFile> const& files, char const* defExt, DVector<BDIMoniker*>& monikers,
                           char const* options);

protected:
    // The question itself

    /// Asks with the formats on offer, and sorts the result. Without a chosen format it begins with the one whose
    /// pattern is the initial file's extension, otherwise with the first. Warns the user if nothing is on offer.
    /// @param key  category of the folders that the dialog offers, "" for none
    bool ShowFileDlg(int mode, char const* key);
    /// Puts the question: shows the system's file dialog, takes over the format that is chosen at its end and the check
    /// boxes, has the files resolved and remembers their folder. A host that overrides it takes the whole over: it
    /// fills m_vecFiles, m_pFrmt and the check box states.
    /// @param filter  pairs of name and pattern, a bar behind each, and one more bar at the end
    /// @param index   filter to begin with, from 0
    /// @param defExt  default extension or pattern; may be null
    /// @param key     folder category; without one (null or "") no folders are offered and none is remembered
    /// @return true if the result stands; false if the user cancelled or the files came to nothing
    virtual bool OpenMFCFileDlg(int mode, char const* filter, int index, char const* defExt, char const* key);

    // The offer

    /// Adds a format, borrowed, at the end, or if @p sorted in front of the first one with a greater name.
    void AddDscr(DFileFrmt* format, bool sorted);
    /// Takes the first entry that is this very format off the offer.
    void RmvDscr(DFileFrmt* format);
    /// The first format on offer with that identifier, null for none. Warns the user if nothing is on offer.
    DFileFrmt* GetFormat(char const* id);
    /// The same by name.
    DFileFrmt* GetFormatByName(char const* name);
    /// Adds a ready-made offer and chooses its first format.
    void SetFormat(FileDlg::EFormat format, int mode);
    /// Adds what plug-ins offer, sorted by name.
    /// @param mngr   null for the custom imports of the workspace
    /// @param check  handed on to the plug-ins; may be null
    void AddIOPluginFilters(DIOPluginMngr* mngr, int mode, ICheck<DString>* check);

    // The filter text of the system's dialog

    void InitFilter(char* buffer) const;
    void FinishFilter(char* buffer) const;
    /// Puts the text of the whole offer together. What doesn't fit is left out from the end, and the user is warned.
    /// @param offered  receives how many formats are in it; may be null
    /// @return a buffer that all objects share
    [[nodiscard]] char const* BuildFilter(int* offered = nullptr) const;

    DString m_strInitFile;               ///< file, folder or path to begin with
    DString m_strInitFrmtId;             ///< identifier of the format to begin with
    DVector<DFileFrmt*> m_vecDscr;       ///< formats on offer, borrowed, in the order of the filter
    DList<DFileFrmt*> m_lstPluginFrmts;  ///< formats made for this dialog, owned
    DVector<BDIMoniker*> m_vecFiles;     ///< the result, owned
    CString m_strCaption;                ///< title of the dialog
    DFileFrmt* m_pFrmt = nullptr;        ///< format to begin with, then the one chosen; borrowed
    bool m_bMultiple = false;            ///< several files may be picked
    bool m_bNoChangeDir = false;         ///< locked to the folder
    unsigned int m_nDataType = kAllData; ///< asked of the plug-ins
    int m_nNodeType = 0;                 ///< kinds of nodes that are asked for
    bool m_bOverwritePrompt = true;      ///< ask before overwriting
    int m_nDlgTmplId = 0;                ///< template of the extra panel, 0 for the usual one
    bool m_bChckReadOnly = false;        ///< "Read-Only" was checked
    bool m_bChckEditOnly = false;        ///< "Project-Edit" was checked
    DString m_strOptions;                ///< what stands in "Options:"

private:
    /// Deletes the result and the formats of plug-ins and empties the offer; options and chosen format stay.
    void Reset();
    void DeleteFiles();

    void OfferAll(std::initializer_list<DFileFrmt*> formats);
    void SetTitle(tavkit::Titles const& titles, tavkit::TitleRule rule, int mode);
    /// "Load " or "Save ", the label and "..."; other modes leave the title.
    void SetLabelledTitle(int mode, CString const& label);
    /// Without an initial file, begins in the stored folder.
    void BeginInStoredFolder(char const* key);
    /// Begins with a file in the folder stored under @p key, otherwise in @p dir.
    void BeginWithFileIn(char const* file, char const* dir, char const* key);
    /// Stores the folder of the first result.
    void StoreFolder(char const* key) const;
    /// Asks, and stores the folder of the first result.
    bool AskAndStore(int mode, char const* category, char const* folderKey);

    /// Empties the offer.
    void BeginPluginOffer(int nodeType);
    /// Offers the formats of plug-ins, and for loading all files ahead of them.
    void OfferOfPlugins(DIOPluginMngr* mngr, int mode, ICheck<DString>* check);
    /// Takes the first format with that identifier off the offer.
    void Withdraw(char const* id);
    [[nodiscard]] DString FormatIdToBeginWith(char const* key, char const* dflt) const;
    /// Stores the chosen format, unless it is that of all files.
    void StoreFormatId(char const* key) const;

    bool OpenOwnData(tavkit::OwnData const& data, DFileFrmt* format, int mode);
    bool OpenLabelled(int mode, CString const& label, DFileFrmt& format, char const* key);

    /// A format that is made for one question. It stays, and with the copies, for m_pFrmt may point to it.
    std::shared_ptr<DFileFrmt> m_frmtForOnce = std::make_shared<DFileFrmt>(nullptr, "", "");
};
