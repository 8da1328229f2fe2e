// FormatCatalogue.cpp
#include "tavkit/filedlg/FormatCatalogue.h"

namespace tavkit
{

DFileFrmt FileFrmtAll("ALL", "All Files", "*.*");
DFileFrmt FileFrmtAscii(nullptr, "Ascii text files", "*.txt");
DFileFrmt FileFrmtCSV("CSV", "Comma separated list files", "*.csv");
DFileFrmt FileFrmtTCSV("TCSV", "Comma separated list files (Transposed)", "*.tcsv");
DFileFrmt FileFrmtTiff(nullptr, "Tagged image files", "*.tif");
DFileFrmt FileFrmtShape(nullptr, "Shape files", "*.shp");
DFileFrmt FileFrmtDBase(nullptr, "DBase files", "*.dbf");
DFileFrmt FileFrmtConn("ZRC", "ArcSDE connection files", "*.zrc");
DFileFrmt FileFrmtAperio("APERIO_VDI", "Aperio annotation files", "*.xml");
DFileFrmt FileFrmtXML(nullptr, "XML files", "*.xml");
DFileFrmt FileFrmtHTML("HTML", "HTML files", "*.htm");
DFileFrmt FileFrmtSnippet("Snippets", "Snippet files", "*.slb");

} // namespace tavkit
