// DFile.cpp - the text half of a file name; DFileAccess.cpp asks the disk
#include "tavkit/frame/services/DFile.h"

#include <string>

#include "host/PathText.h"

namespace
{
DString ToText(std::string_view view) { return std::string(view).c_str(); }
} // namespace

DFile::DFile(char const* moniker) : m_strMoniker(moniker) {}
DFile::DFile(DFile const& other) = default;
DFile& DFile::operator=(DFile const& other) = default;
DFile::~DFile() = default;

DString DFile::GetMoniker() const { return m_strMoniker; }

DString DFile::GetPhysFilePath() const { return ToText(host::SplitPath(m_strMoniker.c_str()).folder); }

DString DFile::GetPhysFileName() const { return ToText(host::SplitPath(m_strMoniker.c_str()).name); }

DString DFile::GetPhysFileExtn() const { return ToText(host::ExtensionOf(host::SplitPath(m_strMoniker.c_str()).name)); }

void DFile::ChngDir(char const* folder)
{
    const host::PathParts parts = host::SplitPath(m_strMoniker.c_str());
    std::string path = folder ? folder : "";
    if (path == ".")
    {
        path.clear(); // the current folder stands for "none": a name alone lies there anyway
    }
    if (!path.empty() && !host::EndsFolder(path.back()))
    {
        path += '\\';
    }
    path += parts.name;
    path += parts.options;
    m_strMoniker = path.c_str();
}
