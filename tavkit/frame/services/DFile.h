// DFile.h - a file name as a value
#pragma once

#include "tavkit/frame/services/DString.h"

/// The name of a file, as text; never an open file. The text stays as it was given: it isn't made absolute. Both "\"
/// and
/// "/" separate folders. A tail from the first "?" on holds options ("a.tif?page=2") and is no part of the physical
/// path.
class TAVHOST_API DFile
{
public:
    /// @param moniker  the text, copied; null gives an empty name.
    DFile(char const* moniker = nullptr);
    DFile(DFile const& other);
    DFile& operator=(DFile const& other);
    virtual ~DFile();

    /// The text that names the file, as the user would see it: options included.
    [[nodiscard]] DString GetMoniker() const;
    /// The folder of the physical path with its closing separator; "" when the name has none. "." has none.
    [[nodiscard]] DString GetPhysFilePath() const;
    /// The name of the physical file without its folder.
    [[nodiscard]] DString GetPhysFileName() const;
    /// The extension of the physical file without the dot ("*.tif*" has "tif*"); "" without one.
    [[nodiscard]] DString GetPhysFileExtn() const;

    /// Puts the file into another folder: replaces the folder part and keeps the name and its options. A missing
    /// closing separator is supplied; null, "" and "." leave the bare name.
    void ChngDir(char const* folder);

    /// True if the physical path names a file or a folder that is there; false on any failure.
    [[nodiscard]] bool Exist() const;
    /// True if the physical path names a file that can be opened for reading at this moment; false on any failure, and
    /// for a folder.
    [[nodiscard]] bool CanRead() const;

private:
    DString m_strMoniker;
};
