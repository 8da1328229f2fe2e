#include "workbench/HistogramPane.h"

#include "tavkit/drawing/ImageFit.h"
#include "workbench/resource.h"

#include <algorithm>

namespace workbench
{
namespace
{
constexpr char kPaneTitle[] = "Histogram";
constexpr SIZE kPaneSize{290, 170}; // dialog units
constexpr int kSlots = 32;
constexpr SIZE kMostRead{1024, 1024}; // pixels
} // namespace

BEGIN_MESSAGE_MAP(HistogramPane, ChartPane)
    ON_CBN_SELCHANGE(IDC_HISTOGRAM_CHANNEL, OnChannelChosen)
    ON_MESSAGE(WM_CHART_SLCT, OnSlotChosen)
END_MESSAGE_MAP()

BOOL HistogramPane::Create(CWnd* owner, UINT id, CFont* font, const DialogUnits& units)
{
    if (!CreatePane(kPaneTitle, owner, id, font, units, kPaneSize, Side::lower) ||
        !CreateChoice(m_label, "&Channel:", m_channelBox, IDC_HISTOGRAM_CHANNEL) ||
        !m_chart.Create(CHstgCtrl::ClassName, "", WS_CHILD | WS_VISIBLE, CRect(), this, IDC_HISTOGRAM_CHART))
    {
        return FALSE;
    }
    m_chart.SetAutoScale(true);
    m_chart.DrawFreq(false); // so many numbers don't fit
    m_chart.DrawTextA(false);
    m_chart.EnblToolTip(true);
    PlaceParts();
    return TRUE;
}

void HistogramPane::PlaceParts()
{
    if (m_chart.GetSafeHwnd() != nullptr)
    {
        PlaceChoice(m_label, m_channelBox, 0);
        m_chart.MoveWindow(ChartRect());
    }
}

void HistogramPane::ShowPicture(const std::string& path, const std::optional<PictureInfo>& info)
{
    m_path = path;
    m_info = info;
    FillChannels();
    ReadValues();
}

void HistogramPane::FillChannels()
{
    const int channels = m_info ? m_info->channels : 0;
    if (m_channelBox.GetCount() != channels)
    {
        const int chosen = std::clamp(m_channelBox.GetCurSel(), 0, std::max(0, channels - 1));
        m_channelBox.ResetContent();
        for (int channel = 1; channel <= channels; ++channel)
        {
            m_channelBox.AddString(std::to_string(channel).c_str());
        }
        m_channelBox.SetCurSel(chosen);
    }
}

void HistogramPane::ReadValues()
{
    m_chart.SetHstg(nullptr);
    m_hstg.reset();
    const int channel = m_channelBox.GetCurSel();
    if (!IsShown() || !m_info || channel < 0)
    {
        return;
    }
    const CWaitCursor wait;
    SIZE size = m_info->size;
    if (size.cx > kMostRead.cx || size.cy > kMostRead.cy)
    {
        size = tavkit::FitInto(size, kMostRead);
    }
    if (const auto values = ReadChannel(m_path, channel, m_info->size, size))
    {
        const auto count = static_cast<size_t>(size.cx) * static_cast<size_t>(size.cy);
        m_hstg = DHstg::FromValues(values->type, values->bytes.data(), count, kSlots);
        m_chart.SetHstg(m_hstg.get());
    }
}

std::optional<ClassMark> HistogramPane::Chosen() const
{
    const int slot = m_chart.GetSlctSlot();
    if (!m_hstg || slot < 0 || !IsShown())
    {
        return std::nullopt;
    }
    return ClassMark{m_channelBox.GetCurSel(), m_hstg, slot};
}

void HistogramPane::OnShown()
{
    ReadValues();
    Tell(histogramChosen);
}

void HistogramPane::OnChannelChosen()
{
    ReadValues();
    Tell(histogramChosen);
}

LRESULT HistogramPane::OnSlotChosen(WPARAM, LPARAM)
{
    Tell(histogramChosen);
    return 0;
}
} // namespace workbench
