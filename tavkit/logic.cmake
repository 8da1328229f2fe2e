# Sources of the library that know no window and no platform; the native tests build them too.
set(TAVKIT_LOGIC_SOURCES
    charts/DiscStamp.cpp
    charts/HstgGeometry.cpp
    charts/PlotGeometry.cpp
    charts/PlotZoom.cpp
    drawing/ContrastStretch.cpp
    drawing/ImageFit.cpp
    drawing/MsgBoxLayout.cpp
    drawing/NearestScale.cpp
    drawing/TextBlockMarks.cpp
    filedlg/FileQuestion.cpp
    filedlg/FolderList.cpp
    filedlg/FormatCatalogue.cpp
    filedlg/FormatOffer.cpp
    filedlg/NodeCursor.cpp
    filedlg/Resolution.cpp
    layout/WindowRecord.cpp
    lists/AttrCache.cpp
    lists/AttrSort.cpp
    lists/ColumnRecord.cpp
    lists/ColumnWidths.cpp
    lists/RowText.cpp
    lists/ScanDouble.cpp
    thematic/CardLayout.cpp
    trees/TreeIndex.cpp
    widgets/ComboCompletion.cpp)
list(TRANSFORM TAVKIT_LOGIC_SOURCES PREPEND "${PROJECT_SOURCE_DIR}/tavkit/")
