// PictureView.h - the window that shows a picture, with a scale bar over it
#pragma once

#include "workbench/ClassMark.h"
#include "workbench/MemoryPicture.h"
#include "workbench/ObjectPlace.h"
#include "workbench/ScaleBar.h"
#include "workbench/ViewColors.h"

#include <afxwin.h>

#include <optional>
#include <string>

namespace workbench
{
/// Shows one picture, as large as the window allows, or a message in its place. The picture is read once for each file
/// and size of the window; a repaint only copies it. The window's text says what is shown: the picture's path with the
/// scale bar's length and the marked place, or the message. What its button says goes to the parent window, as if it
/// were the parent's.
class PictureView : public CWnd
{
public:
    /// Creates the window as a child. @param font  for messages and the scale bar; must outlive the window.
    BOOL Create(const RECT& rect, CWnd* parent, UINT id, CFont* font);

    /// Reads a picture and shows it; the same path again reads the file anew.
    /// @param size  of the picture in its own pixels
    void ShowPicture(const std::string& path, SIZE size);
    /// Shows a text in the middle of the window in place of a picture.
    /// @param details  with a "Details..." button under it, IDC_PICTURE_DETAILS
    void ShowMessage(const std::string& text, bool details);
    /// True while there is a message with a button. That a picture could no longer be read at a new size is one too.
    [[nodiscard]] bool OffersDetails() const { return m_offerDetails; }
    [[nodiscard]] CWnd& DetailsButton() { return m_details; }
    /// The message; empty while a picture is shown.
    [[nodiscard]] const std::string& Message() const { return m_message; }
    /// False while a message is shown, also when a picture could no longer be read at a new size.
    [[nodiscard]] bool HasPicture() const { return !m_path.empty(); }
    /// Screen pixels per picture pixel; 0 without a picture.
    [[nodiscard]] double Zoom() const;

    /// Micrometres per picture pixel; without it there is no scale bar.
    void SetPixelSize(std::optional<double> pixelSize);
    void ShowScaleBar(bool show);
    void SetColors(const ViewColors& colors);
    /// Marks a place of the picture by a ring around it; one outside the picture gets none.
    void SetMark(const std::optional<ObjectPlace>& mark);
    /// Marks the pixels of a class of values in one colour, until another picture is shown.
    void SetClassMark(const std::optional<ClassMark>& mark);
    [[nodiscard]] bool IsScaleBarShown() const { return m_showScaleBar; }

protected:
    BOOL OnCommand(WPARAM wParam, LPARAM lParam) override;
    afx_msg void OnPaint();
    afx_msg BOOL OnEraseBkgnd(CDC* dc);
    afx_msg void OnSize(UINT type, int width, int height);
    afx_msg void OnSysColorChange();
    DECLARE_MESSAGE_MAP()

private:
    [[nodiscard]] CRect PictureRect() const;
    void Render();
    void DrawClassMark(CDC& dc);
    void DrawMessage(CDC& dc, CRect room);
    void PlaceDetails();
    [[nodiscard]] CSize DetailsSize() const;
    void DrawScaleBar(CDC& dc);
    [[nodiscard]] std::optional<POINT> MarkPoint() const;
    void DrawMark(CDC& dc, CPoint middle);
    void UpdateScaleBar();
    void DescribeContent();
    [[nodiscard]] COLORREF Background() const;

    CFont* m_font = nullptr;
    std::string m_path;    // empty while a message is shown
    std::string m_message; // empty while a picture is shown
    bool m_offerDetails = false;
    CButton m_details;
    CPoint m_detailsPlace; // upper left corner under the message
    SIZE m_pictureSize{};
    ViewColors m_colors;
    std::optional<double> m_pixelSize;
    bool m_showScaleBar = true;
    std::optional<ScaleBar> m_bar; // what fits at present
    std::optional<ObjectPlace> m_mark;
    std::optional<ClassMark> m_classMark;
    MemoryPicture m_picture; // picture or message at the size of the window
    MemoryPicture m_buffer;  // the same with scale bar and mark, for painting in one step
};
} // namespace workbench
