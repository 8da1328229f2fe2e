// OpenAttrData.h - opens an attribute table
#pragma once

#include <memory>

#include "tavkit/frame/services/BDIMoniker.h"
#include "tavkit/frame/services/DError.h"
#include "tavkit/frame/services/IAttrData.h"

/// Opens the attribute table in a file for reading. The table is read forward only and as far as it is asked for, so a
/// file of any size is open at once; a transposed one is gone through once first. The file stays open as long as the
/// reader lives, and others may write it meanwhile: if it becomes shorter, the table ends early.
///
/// | Identifier | Extensions        | Format |
/// |------------|-------------------|--------|
/// | "CSV"      | csv               | cells separated by commas, first the line of names |
/// | "TCSV"     | tcsv              | the same lying on its side: each line is a column, its name first |
/// | "TXT"      | txt, tsv, tab     | cells separated by a tab if the first line has one, otherwise by blanks |
/// | "DBASE"    | dbf               | dBase III |
///
/// In the text formats a cell within quotes may hold separators and line breaks, and two quotes for one. Types of
/// columns are recognised from the first rows.
/// @param moniker  its path on disk names the file; options behind it say nothing about a table.
/// @param frmtId   identifier of the format, as a DFileFrmt holds it; null or "" goes by the file's extension, and by
///                 its content where the extension tells nothing.
/// @param error    receives the cause of a failure; may be null.
/// @return null if the file can't be read or is no table of that format.
[[nodiscard]] TAVHOST_API std::unique_ptr<IAttrData> OpenAttrData(BDIMoniker const& moniker, char const* frmtId,
                                                                  DError* error);
