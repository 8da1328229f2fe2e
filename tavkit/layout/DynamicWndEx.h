// DynamicWndEx.h - windows that keep their position between runs
#pragma once

#include "tavkit/layout/DynamicWnd.h"

/// What a resizable top-level window needs beyond the placing of its children: it remembers, in the application's
/// profile, where the user left it, and comes back there.
class TAVKIT_API cdxCDynamicWndEx : public cdxCDynamicWnd
{
public:
    /// Section of the application's profile that holds one subsection per window.
    static char const* const M_lpszAutoPosProfileSection;

    /// What RestoreWindowPosition brings back beside the rectangle; a bit set.
    enum RestoreFlags : UINT
    {
        RestoreState = 1,     ///< minimised or maximised
        RestoreVisibility = 2 ///< shown or hidden
    };

    /// How much larger than its template a window is that has no remembered place.
    static constexpr int FirstStretchPercent = 10;

    cdxCDynamicWndEx(Freedom freedom, UINT nFlags);
    ~cdxCDynamicWndEx() override;

    /// Keeps the position under "ID=0x" and the number in hexadecimal.
    void ActivateAutoPos(UINT id);
    /// Keeps the position under a free text.
    void ActivateAutoPos(CString const& name);
    /// Doesn't keep the position.
    void NoAutoPos();

    /// Writes the window's place to the profile, so that a record that was cut short doesn't count.
    /// @param name  section of the profile
    /// @return false without a window, without a name, when the application has no registry key or a write failed
    bool StoreWindowPosition(char const* name);
    /// Moves the window where a record says.
    /// @param nFlags  RestoreFlags
    /// @return false, with the window where it was, when there is no record that counts or it can't be reached
    bool RestoreWindowPosition(char const* name, UINT nFlags);
    /// Grows the window around its middle, by pixels.
    /// @return false without a window or when nothing would be left of it
    bool StretchWindow(CSize const& sz);
    /// Grows the window by a share of its size.
    bool StretchWindow(int nPercent);

    /// Brings a window with a name back to its place, or centres it and makes it a little larger.
    void OnInitialized() override;
    /// Stores the place of a window with a name. A failure is ignored: the next run centres the window.
    void OnDestroying() override;

protected:
    CString m_strAutoPos; ///< name of the window's record; empty for none

private:
    CString AutoPosSection() const;
};
