# Sources of the workbench that know no window and no platform; the native tests build them too.
set(WORKBENCH_LOGIC_SOURCES
    FrameLayout.cpp
    Layers.cpp
    ObjectPlace.cpp
    Options.cpp
    PictureNames.cpp
    Project.cpp
    ProjectFile.cpp
    ScaleBar.cpp
    TickChoice.cpp
    TourPage.cpp)
list(TRANSFORM WORKBENCH_LOGIC_SOURCES PREPEND "${PROJECT_SOURCE_DIR}/workbench/")
