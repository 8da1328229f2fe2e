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
    /// Locks the dialog to its folder; there is no way back.
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
    /// @return a buffer that all objects share
    [[nodiscard]] char const* BuildFilter() const;

    /// Puts the question: shows the system's file dialog, takes over the format that is chosen at its end and the check
    /// boxes, has the files resolved and remembers their folder. A host that overrides it takes the whole over: it
    /// fills m_vecFiles, m_pFrmt and the check box states.
    /// @param filter  pairs of name and pattern, a bar behind each, and one more bar at the end
    /// @param index   filter to begin with, from 0
    /// @param defExt  default extension or pattern; may be null
    /// @param key     folder category; without one (null or "") no folders are offered and none is remembered
    /// @return true if the result stands; false if the user cancelled or the files came to nothing
    virtual bool OpenMFCFileDlg(int mode, char const* filter, int index, char const* defExt, char const* key);

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
};
