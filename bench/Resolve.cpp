// Resolve.cpp - [resolve] a folder of many pictures as monikers, against listing it
#include "bench/Bench.h"
#include "host/repository/StandardDrivers.h"
#include "tavkit/filedlg/FileDlg.h"
#include "tests/support/ManyFiles.h"

#include <string>

#include <windows.h>

namespace bench
{
namespace
{

constexpr int kPictures = 10'000;
constexpr double kTarget = 3;

/// A folder of empty pictures and an empty folder beside it.
class ManyPictures
{
public:
    ManyPictures()
    {
        char temp[MAX_PATH];
        Require(::GetTempPathA(MAX_PATH, temp) != 0, "there is no folder for temporary files");
        m_folder = temp + ("tavkit-resolve-" + std::to_string(::GetCurrentProcessId()));
        m_empty = m_folder + "-empty";
        Require(::CreateDirectoryA(m_folder.c_str(), nullptr) && ::CreateDirectoryA(m_empty.c_str(), nullptr),
                "the folder can't be made");
        support::MakeManyFiles(m_folder, kPictures);
    }
    ~ManyPictures()
    {
        for (int i = 0; i < kPictures; ++i)
        {
            ::DeleteFileA((m_folder + '\\' + support::ManyFilesName(i)).c_str());
        }
        ::RemoveDirectoryA(m_folder.c_str());
        ::RemoveDirectoryA(m_empty.c_str());
    }
    ManyPictures(ManyPictures const&) = delete;
    ManyPictures& operator=(ManyPictures const&) = delete;

    [[nodiscard]] std::string const& Folder() const noexcept { return m_folder; }
    [[nodiscard]] std::string const& Empty() const noexcept { return m_empty; }

private:
    std::string m_folder;
    std::string m_empty;
};

/// How many files a folder has, by the system's own listing.
int List(std::string const& folder)
{
    int files = 0;
    WIN32_FIND_DATAA entry;
    const HANDLE find = ::FindFirstFileA((folder + "\\*").c_str(), &entry);
    Require(find != INVALID_HANDLE_VALUE, "the folder can't be listed");
    do
    {
        files += (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0 ? 1 : 0;
    } while (::FindNextFileA(find, &entry));
    ::FindClose(find);
    return files;
}

void Clear(DVector<BDIMoniker*>& monikers)
{
    for (BDIMoniker const* moniker : monikers)
    {
        delete moniker;
    }
    monikers.Clear();
}

std::vector<Row> RunResolve()
{
    const ManyPictures pictures;
    repository::StandardDrivers drivers;
    DFileFrmt format(repository::kFolderDriver, "Folders", "*.*");
    // Two files, so that nobody is asked which pictures are meant.
    DVectorSafe<DFile> files;
    files.Append(pictures.Folder().c_str());
    files.Append(pictures.Empty().c_str());
    DVector<BDIMoniker*> monikers;
    int listed = 0;
    const Medians medians = Interleave(
        {[&] { FileDlg::ResolveBDI(FileDlg::kLoad, bdiRaster, &format, "", files, "*.*", monikers, nullptr); },
         [&] { Clear(monikers); }, [&] { Require(monikers.GetCount() == kPictures + 1, "there are other pictures"); }},
        {[&] { listed = List(pictures.Folder()); }, nullptr,
         [&] { Require(listed == kPictures, "the listing has other files"); }});
    Clear(monikers);
    return {{"resolve.folder", kPictures, medians.ours, medians.reference, kTarget}};
}

const Registration kResolve("resolve", RunResolve);

} // namespace
} // namespace bench
