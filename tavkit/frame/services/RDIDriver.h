// RDIDriver.h - reads the channels of a picture file
#pragma once

class BDIMoniker;
class DError;

/// Types of raster data.
struct DMITypes
{
    /// Type of one value of a channel.
    enum RDIDataType
    {
        rdiUInt8 = 1,
        rdiUInt16 = 2,
        rdiInt16 = 4,
        rdiUInt32 = 8,
        rdiInt32 = 16,
        rdiFloat32 = 32
    };
};

/// Position of a channel in the picture. The two factors divide the channel's height and width: a channel stored at
/// twice the resolution of the picture has 2 and 2.
class RDIGeoCoo
{
public:
    RDIGeoCoo() noexcept {}
    ~RDIGeoCoo() {}

    int m_nStepY = 1; ///< vertical factor
    int m_nStepX = 1; ///< horizontal factor
};

/// Reader of one kind of picture file. Hosts and tests derive their drivers and register them with the RDIDriverMngr.
/// Channels count from 0. A channel outside the file has size 0 and can't be read. No operation throws.
class RDIDriver
{
public:
    RDIDriver() = default;
    RDIDriver(RDIDriver const&) = delete;
    RDIDriver& operator=(RDIDriver const&) = delete;
    virtual ~RDIDriver() = default;

    /// True if this driver is the one for the item, going by its name; the file needn't be there.
    virtual bool Accepts(BDIMoniker const& moniker) const = 0;
    /// Opens the file.
    /// @param error  receives the cause of a failure; may be null.
    /// @return handle for the operations below, ended by CloseFile; null on failure.
    virtual void* OpenFile(BDIMoniker const& moniker, DError* error) = 0;

    virtual int GetNumChnl(void* hFile) = 0;
    /// Width of the channel in its own pixels.
    virtual int GetChnlSizeX(void* hFile, int chnl) = 0;
    /// Height of the channel in its own pixels.
    virtual int GetChnlSizeY(void* hFile, int chnl) = 0;
    /// Fills @p geoCoo; false, and the record as it was, if the channel has no position of its own.
    virtual bool GetChnlGeoCode(void* hFile, int chnl, RDIGeoCoo* geoCoo) = 0;
    virtual DMITypes::RDIDataType GetChnlDataType(void* hFile, int chnl) = 0;
    /// Reads a window of a channel, resampled to the size asked for.
    /// @param left, top, right, bottom  the window in logical pixels: channel pixels divided by the factors.
    /// @param buffer  receives @p width times @p height values of the channel's type, row by row without padding.
    /// @param mode    3: nearest or averaging, as the driver likes.
    /// @param bRsmpl  false: the window must be as large as the target, nothing is resampled.
    /// @return false if the window or the file can't be read; the buffer's content is then open.
    virtual bool ReadBlockRsmpl(void* hFile, int chnl, double left, double top, double right, double bottom,
                                void* buffer, int width, int height, unsigned int mode, bool bRsmpl) = 0;
    virtual void CloseFile(void* hFile) = 0;
};
