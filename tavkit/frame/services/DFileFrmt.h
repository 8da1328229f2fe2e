// DFileFrmt.h - describes a file format to the file dialogs
#pragma once

#include "tavkit/frame/services/DString.h"

/// A file format: what it is called inside, what the user reads, and which file names it has.
class TAVHOST_API DFileFrmt
{
public:
    /// Copies the three texts; each may be null.
    DFileFrmt(char const* id, char const* name, char const* pattern);
    DFileFrmt(DFileFrmt const& other);
    DFileFrmt& operator=(DFileFrmt const& other);
    ~DFileFrmt();

    /// Appends the name, a bar, the pattern and a bar to the text at @p filter, which must have room for them.
    /// A null pointer is left alone.
    void GetFilter(char* filter) const;

    // The fields are part of the interface, in this order.
    DString m_strId;      ///< identifier of the format; may be empty
    DString m_strName;    ///< what the file dialogs show
    DString m_strPattern; ///< file name pattern, several separated by ";"
};
