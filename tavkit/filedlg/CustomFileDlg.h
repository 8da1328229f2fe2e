// CustomFileDlg.h - the system's file dialog with a panel of the library's own below it
#pragma once

#include "tavkit/frame/services/DString.h"
#include "tavkit/frame/services/DVector.h"
#include "tavkit/resources/resource.h"
#include "tavkit/widgets/TavComboBox.h"

#include <afxdlgs.h>

/// The system's file dialog in its Explorer style. The panel offers folders to go to, and an options text or two check
/// boxes, by its template. With OFN_NOCHANGEDIR set the dialog is locked: it keeps the user in the folder that it
/// begins in by disabling its folder combo box, by taking the folders off its list and by hiding the buttons that lead
/// out of the folder. One locked dialog can be up at a time. While it is, every list view of the thread loses the rows
/// whose text is no file of the folder, not only the dialog's own: as it has always been.
class CCustomFileDlg : public CFileDialog
{
public:
    static constexpr UINT DefaultTemplate = IDD_FILE_PANEL;
    static constexpr int NameSize = 520;  ///< bytes that are kept of a typed name while the folder changes
    static constexpr int ClassSize = 250; ///< bytes that are read of a window's class
    static constexpr int ItemSize = 250;  ///< bytes that are read of a name in the list

    /// @param bOpen     TRUE opens, FALSE saves
    /// @param defExt    default extension, borrowed; may be null
    /// @param file      what stands in the file name box; may be null
    /// @param filter    pairs of name and pattern, a bar behind each, and one more bar at the end; may be null
    /// @param parent    null for the main window
    /// @param tmplId    of the panel; 0 for DefaultTemplate
    CCustomFileDlg(BOOL bOpen, char const* defExt, char const* file, char const* filter, CWnd* parent, UINT tmplId);
    ~CCustomFileDlg() override;

    CTavComboBox m_cmbFolders;         ///< folders to go to
    CStatic m_lblFolders;              ///< its label
    bool m_bChckReadOnly = false;      ///< "Read-Only" is checked
    bool m_bChckEditOnly = false;      ///< "Project-Edit" is checked
    CString m_strOptions;              ///< of the edit field, where the template has one
    DVectorSafe<DString> m_vecFolders; ///< for the combo box, in this order
    bool m_bShowFolders = false;       ///< show the combo box and its label
    int m_cxLast = 0;                  ///< client width of the system's dialog at the last layout; 0 before
    int m_cyLast = 0;                  ///< the height
    bool m_bInitDone = false;          ///< the panel may be laid out

protected:
    void DoDataExchange(CDataExchange* pDX) override;
    BOOL OnInitDialog() override;
    BOOL OnFileNameOK() override;
    void OnInitDone() override;

    void OnSize(UINT nType, int cx, int cy);
    void OnGoToFolder();
    void OnReadOnly();
    void OnProjectEdit();

    DECLARE_MESSAGE_MAP()

private:
    [[nodiscard]] bool IsLocked() const { return (m_ofn.Flags & OFN_NOCHANGEDIR) != 0; }
    void Lock();
    void Unlock();
    void FillFolders();
    void RemoveFolders();
    void LayOutPanel();

    static LRESULT CALLBACK LockProc(int code, WPARAM wParam, LPARAM lParam);
    static void PruneList(HWND list);
    static void HideButtons();

    bool m_bHooked = false; ///< s_hook is this dialog's

    static HHOOK s_hook;         ///< while a locked dialog is up
    static bool s_bToolBarKnown; ///< s_toolBar is one
    static HWND s_toolBar;       ///< the first tool bar that was met
};
