// TavComboBox.h - combo box that completes what is typed, filters its list and shows texts that don't fit
#pragma once

#include <afxwin.h>
#include <afxcmn.h>

#include <vector>

#include "tavkit/frame/Export.h"
#include "tavkit/frame/LifeWatch.h"
#include "tavkit/frame/services/DString.h"
#include "tavkit/frame/services/DVector.h"

/// A combo box whose list is as wide as its longest entry, and whose tool tip shows a selected text that doesn't fit.
///
/// With auto-completion each keystroke looks for the entries that match: the first is selected and its text put into
/// the edit field, with what the user hasn't typed highlighted. With filtering the list shows the matches only. The
/// true entries are backed up as typing begins and come back when the user is done with the list, chosen or not; who
/// reads the list in between sees the filtered entries.
///
/// The parent sees the notifications of any combo box, and a CBN_SELCHANGE of our own for each entry that completion
/// selects. It may destroy the combo box in any of them. Nothing is reported to the user.
class TAVKIT_API CTavComboBox : public CComboBox
{
public:
    /// One entry that was backed up.
    struct ComboItem
    {
        CString m_strText;
        DWORD_PTR m_dwData = 0; ///< the item's data
    };

    /// A rule of matching: appends the indexes of the entries that match, in the order in which they are to be shown.
    /// A first index of -1 counts as no match, and an index behind the last entry as an empty entry.
    /// @param combo  the asking control
    /// @param text   what stands in the edit field, never ""
    /// @param items  the entries; those that it walks stay until it returns, also if it ends the edit meanwhile
    /// @param found  empty at first
    using FltrFunc = void (*)(CTavComboBox* combo, DString const& text, DVectorSafe<ComboItem> const* items,
                              DVector<int>* found);

    static constexpr DWORD TipDelay = 500;   ///< milliseconds that the mouse rests before a tip shows
    static constexpr UINT_PTR TipToolID = 1; ///< of the tool of a combo box without child windows

    /// Starts with tool tips, and without auto-completion.
    CTavComboBox();
    ~CTavComboBox() override;
    CTavComboBox(CTavComboBox const&) = delete;
    CTavComboBox& operator=(CTavComboBox const&) = delete;

    /// Turning tips off leaves a tip that is set as it is.
    void EnableTooltip(bool bEnable);
    /// @param bFilter  also filter the list; counts only with bEnable. Turning it off while the list is filtered brings
    ///                 the entries back.
    void EnableAutoComplete(bool bEnable, bool bFilter);
    [[nodiscard]] bool IsAutoCompleteEnabled() const;
    /// Replaces the rule of matching, by which an entry matches that begins with the text, upper and lower case being
    /// equal.
    /// @param pFltrFunc  null turns matching off: typing only shows the list
    void SetFltrFunc(FltrFunc pFltrFunc);

    /// Makes the dropped list wide enough for its longest entry.
    /// @return false if the control has no font, or refused the width
    virtual bool AdjustDropppedWidth();
    /// Makes the dropped list as high as its entries, its upper edge staying.
    /// @param rc  the list gets no higher than this
    virtual void AdjustDroppedHeight(CRect const& rc);
    /// @return index of the first entry with that item data; -1 if there is none
    virtual int FindByData(DWORD_PTR dwData);

    void PostNcDestroy() override;

protected:
    /// The text of the selected entry; without one, that of the window.
    CString GetCrntText();
    /// Sets the tip to the current text, or to nothing if that fits.
    void UpdateToolTip();
    /// Empties the list, each item's data being 0 by then: a derived class that frees an item's data in DeleteItem()
    /// frees nothing that the backup still needs.
    void SafeResetContents();
    /// Backs up the entries, in place of a former backup, and at the first time the list's place on the screen.
    void BackupContents();
    /// Puts the backed up entries into the list, unless it has as many already, and selects what was selected.
    void RestoreContents();

    int PreTranslateMessage(MSG* pMsg) override;

    afx_msg void OnDestroy();
    afx_msg void OnMouseMove(UINT nFlags, CPoint point);
    // These let the parent see the notification too.
    afx_msg BOOL OnDropDown();
    afx_msg BOOL OnEditUpdate();
    afx_msg BOOL OnFinishEdit();
    DECLARE_MESSAGE_MAP()

    bool m_bToolTip = true;
    bool m_bAutoComplete = false;
    bool m_bFilterList = false; ///< filter the list while the user types
    FltrFunc m_pFltrFunc;       ///< null for no matching
    CToolTipCtrl m_ToolTip;     ///< created on demand
    CString m_strToolTip;       ///< the tip that is set; empty for none
    bool m_bDeleting = false;   ///< the last key was Backspace or Delete
    /// The entries as they were before typing began; empty while no edit is in progress.
    DVectorSafe<ComboItem> m_Backup;
    /// The list's place on the screen at the first backup, of no height until then.
    CRect m_rcDropped;

private:
    class EditWatch;
    class FilterCall;
    struct Keystroke;

    void ShowMatches(Keystroke const& key, DVector<int> const& found);
    void ShowAll(Keystroke const& key);
    bool ShowList(Keystroke const& key);
    bool InsertItems(DVector<int> const& indexes);
    void ForgetBackup();
    void SlctItem(CString const& text, DWORD_PTR data);
    bool CreateToolTip();
    [[nodiscard]] bool TextFits(CString const& text);

    unsigned m_nEdit = 0;        ///< counts keystrokes and ends of edits
    bool m_bMatchesOnly = false; ///< what a keystroke has left in the list are its matches
    int m_nFilters = 0;          ///< calls of the filter that run
    /// Backups of edits that ended while the filter runs, which may be walking them.
    std::vector<DVectorSafe<ComboItem>> m_Walked;
    LifeToken m_life;
};
