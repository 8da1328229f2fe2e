// DFileAccess.cpp - what a file name finds on the disk
#include <string>

#include <windows.h>

#include "host/FileBytes.h"
#include "tavkit/frame/services/DFile.h"

bool DFile::Exist() const
{
    return ::GetFileAttributesW(host::WidePath(host::PhysicalPath(*this)).c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool DFile::CanRead() const
{
    // Opening is the only test that holds: attributes don't know about rights and locks. A folder can't be opened so.
    return host::OpenForReading(host::PhysicalPath(*this).c_str()).IsValid();
}
