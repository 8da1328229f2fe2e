// FormatCatalogue.h - the file formats that the library knows by itself
#pragma once

#include "tavkit/frame/Export.h"
#include "tavkit/frame/services/DFileFrmt.h"

namespace tavkit
{

extern TAVKIT_API DFileFrmt FileFrmtAll;
extern TAVKIT_API DFileFrmt FileFrmtAscii;
extern TAVKIT_API DFileFrmt FileFrmtCSV;
extern TAVKIT_API DFileFrmt FileFrmtTCSV;
extern TAVKIT_API DFileFrmt FileFrmtTiff;
extern TAVKIT_API DFileFrmt FileFrmtShape;
extern TAVKIT_API DFileFrmt FileFrmtDBase;
extern TAVKIT_API DFileFrmt FileFrmtConn;
extern TAVKIT_API DFileFrmt FileFrmtAperio;
extern TAVKIT_API DFileFrmt FileFrmtXML;
extern TAVKIT_API DFileFrmt FileFrmtHTML;
extern TAVKIT_API DFileFrmt FileFrmtSnippet;

} // namespace tavkit
