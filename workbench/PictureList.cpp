#include "workbench/PictureList.h"

#include "host/FileBytes.h"
#include "workbench/PictureNames.h"

#include <windows.h>

#include <algorithm>
#include <climits>
#include <memory>

namespace workbench
{
namespace
{
constexpr char kSamplesName[] = "samples";
constexpr std::string_view kSeparators = "\\/";

struct CloseFind
{
    void operator()(HANDLE find) const { ::FindClose(find); }
};

/// Attributes of a path of any length.
DWORD AttributesOf(const std::string& path) { return ::GetFileAttributesW(host::WidePath(path).c_str()); }

bool IsFolder(const std::string& path)
{
    const DWORD attributes = AttributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool IsFile(const std::string& path)
{
    const DWORD attributes = AttributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

/// A name in the ANSI code page.
std::string Narrow(const wchar_t* name)
{
    char narrow[2 * MAX_PATH]; // no code page takes more for a name
    const int length = ::WideCharToMultiByte(CP_ACP, 0, name, -1, narrow, sizeof narrow, nullptr, nullptr);
    return length > 0 ? narrow : "";
}

bool EndsWithSeparator(const std::string& path)
{
    return !path.empty() && kSeparators.find(path.back()) != std::string_view::npos;
}

std::string Join(const std::string& folder, const std::string& name)
{
    return EndsWithSeparator(folder) ? folder + name : folder + "\\" + name;
}

/// Where the name begins; 0 for a bare name.
size_t NameStart(const std::string& path)
{
    const size_t separator = path.find_last_of(kSeparators);
    return separator == std::string::npos ? 0 : separator + 1;
}

/// The path up to its last separator; a drive keeps the separator, since without it the path means something else.
std::string ParentOf(const std::string& path)
{
    const size_t start = NameStart(path);
    if (start == 0)
    {
        return {};
    }
    const bool isRoot = start >= 2 && path[start - 2] == ':';
    return path.substr(0, isRoot ? start : start - 1);
}
} // namespace

std::string MakeAbsolute(const std::string& path)
{
    char buffer[MAX_PATH];
    const DWORD length = ::GetFullPathNameA(path.c_str(), sizeof buffer, buffer, nullptr);
    return length > 0 && length < sizeof buffer ? std::string(buffer, length) : path;
}

void PictureList::Load(const std::string& path)
{
    std::string whole = MakeAbsolute(path);
    m_asked.clear();
    if (IsFile(whole))
    {
        m_asked = whole.substr(NameStart(whole));
        whole = ParentOf(whole);
    }
    else if (EndsWithSeparator(whole) && !ParentOf(whole).ends_with('\\'))
    {
        whole.pop_back();
    }
    m_folder = whole;
    Scan();
}

void PictureList::Reload() { Scan(); }

void PictureList::Remove(size_t index)
{
    if (index >= m_names.size())
    {
        return;
    }
    m_names.erase(m_names.begin() + static_cast<std::ptrdiff_t>(index));
    if (m_names.empty())
    {
        m_problem = "All pictures of \"" + m_folder + "\" were deleted from the list. F5 brings them back.";
    }
}

std::string PictureList::Rename(size_t index, const std::string& name)
{
    std::string& old = m_names.at(index);
    if (std::string problem = NameProblem(name); !problem.empty())
    {
        return problem;
    }
    if (!::MoveFileW(host::WidePath(PathOf(index)).c_str(), host::WidePath(Join(m_folder, name)).c_str()))
    {
        return ::GetLastError() == ERROR_ALREADY_EXISTS || ::GetLastError() == ERROR_FILE_EXISTS
                   ? "There is a file \"" + name + "\" already."
                   : "The system doesn't let \"" + old + "\" be renamed to \"" + name + "\".";
    }
    if (m_asked == old)
    {
        m_asked = name;
    }
    old = name;
    return {};
}

int PictureList::KiloBytesOf(size_t index) const
{
    constexpr ULONGLONG kKiloByte = 1024;
    WIN32_FILE_ATTRIBUTE_DATA data{};
    ::GetFileAttributesExW(host::WidePath(PathOf(index)).c_str(), GetFileExInfoStandard, &data);
    const ULONGLONG bytes = ULONGLONG{data.nFileSizeHigh} << 32 | data.nFileSizeLow;
    return static_cast<int>(std::min<ULONGLONG>((bytes + kKiloByte - 1) / kKiloByte, INT_MAX));
}

int PictureList::Asked() const { return IndexOfName(m_names, m_asked); }

std::string PictureList::PathOf(size_t index) const { return Join(m_folder, m_names.at(index)); }

void PictureList::Scan()
{
    m_names.clear();
    m_problem.clear();
    if (!IsFolder(m_folder))
    {
        m_problem = "There is no folder or file \"" + m_folder + "\".";
        return;
    }
    WIN32_FIND_DATAW data;
    const HANDLE handle = ::FindFirstFileW(host::WidePath(Join(m_folder, "*")).c_str(), &data);
    if (handle == INVALID_HANDLE_VALUE)
    {
        // The root of an empty drive answers "not found", since it holds not even itself.
        m_problem = ::GetLastError() == ERROR_FILE_NOT_FOUND ? "There are no pictures in \"" + m_folder + "\"."
                                                             : "The folder \"" + m_folder + "\" can't be read.";
        return;
    }
    const std::unique_ptr<void, CloseFind> find(handle);
    do
    {
        const bool isFile = (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
        const std::string name = Narrow(data.cFileName);
        if (isFile && (IsPictureName(name) || (!m_asked.empty() && IndexOfName({m_asked}, name) == 0)))
        {
            m_names.push_back(name);
        }
    } while (::FindNextFileW(find.get(), &data));
    SortNames(m_names);
    if (m_names.empty())
    {
        m_problem = "There are no pictures in \"" + m_folder + "\".";
    }
}

std::string SamplesFolder()
{
    char program[MAX_PATH];
    const DWORD length = ::GetModuleFileNameA(nullptr, program, sizeof program);
    const std::string own = ParentOf(std::string(program, length));
    for (std::string folder = own; !folder.empty(); folder = ParentOf(folder))
    {
        const std::string samples = Join(folder, kSamplesName);
        if (IsFolder(samples))
        {
            return samples;
        }
        if (EndsWithSeparator(folder))
        {
            break; // the root
        }
    }
    return own;
}
} // namespace workbench
