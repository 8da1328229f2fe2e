// HistogramPane.h - the histogram of a channel of the picture that is shown
#pragma once

#include "tavkit/charts/HstgCtrl.h"
#include "workbench/ChartPane.h"
#include "workbench/ClassMark.h"

#include <memory>
#include <optional>
#include <string>

namespace workbench
{
/// What the pane tells the main window.
enum HistogramNotice
{
    histogramChosen = 1 ///< another class is chosen, or none any more
};

/// The values of one channel, and a choice of the channel. A click on a bar chooses its class. Of a large picture it
/// reads a smaller one. Nothing is read while it is hidden.
class HistogramPane : public ChartPane
{
public:
    /// Creates the window, hidden. @param font  of its parts; must outlive the window.
    BOOL Create(CWnd* owner, UINT id, CFont* font, const DialogUnits& units);

    /// Shows another picture, or the same one read anew; none for no info. The slot that is chosen stays.
    void ShowPicture(const std::string& path, const std::optional<PictureInfo>& info);
    /// The class that is chosen; none without one, and while it is hidden.
    [[nodiscard]] std::optional<ClassMark> Chosen() const;

protected:
    void PlaceParts() override;
    void OnShown() override;
    afx_msg void OnChannelChosen();
    afx_msg LRESULT OnSlotChosen(WPARAM wParam, LPARAM lParam);
    DECLARE_MESSAGE_MAP()

private:
    void FillChannels();
    void ReadValues();

    CStatic m_label;
    CComboBox m_channelBox;
    CHstgCtrl m_chart;
    std::string m_path;
    std::optional<PictureInfo> m_info;
    std::shared_ptr<const DHstg> m_hstg; ///< what the chart shows; null for nothing
};
} // namespace workbench
