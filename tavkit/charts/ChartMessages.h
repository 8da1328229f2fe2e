// ChartMessages.h - what the charts tell their parents
#pragma once

#include "tavkit/frame/WinTypes.h"

/// Posted to the parent of a chart after a click. From CHstgCtrl after each one, with both parameters 0. From CPlotCtrl
/// after one that selected a point, with its `CPlotCtrl::DataPoint*` as wParam and 0 as lParam; the point is the plot's
/// and may be gone by then, if the parent called CPlotCtrl::Clear in between.
constexpr UINT WM_CHART_SLCT = 0x8000 + 101; // WM_APP + 101
