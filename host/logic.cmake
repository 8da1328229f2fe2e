# Sources of the host's services that know no window and no platform; the native tests build them too.
set(HOST_LOGIC_SOURCES
    BDIDrvrMngr.cpp
    BDIMoniker.cpp
    BaseFuncs.cpp
    DCanvas.cpp
    DError.cpp
    DFile.cpp
    DFileFrmt.cpp
    DHstg.cpp
    IAttrData.cpp
    PathText.cpp
    XMLNode.cpp
    raster/BlockDecoder.cpp
    raster/Inflater.cpp
    raster/PictureFile.cpp
    raster/PixelLayout.cpp
    raster/Resample.cpp
    raster/TiffDirectory.cpp
    raster/TiffPicture.cpp)
list(TRANSFORM HOST_LOGIC_SOURCES PREPEND "${PROJECT_SOURCE_DIR}/host/")
