// FileQuestion.cpp
#include "tavkit/filedlg/FileQuestion.h"
#include "tavkit/filedlg/OpenerRules.h"

#include "tavkit/frame/services/BDIMoniker.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace tavkit
{

namespace
{

/// A name that means a folder can't be the file to begin with; with one that no file can have the system would show no
/// dialog at all.
[[nodiscard]] bool IsFileName(DString const& name)
{
    const std::string_view text = name.c_str();
    return !text.empty() && text != "." && text != ".." && text.size() <= kLongestStartName &&
           text.find_first_of("<>:\"|") == std::string_view::npos;
}

[[nodiscard]] bool CanBegin(DString folder)
{
    folder.TrimRight("\\/");
    return folder.GetLength() <= kLongestStartFolder;
}

} // namespace

DString DefaultExtension(char const* defExt)
{
    std::string_view pattern = defExt ? defExt : "";
    pattern = pattern.substr(0, pattern.find(';'));
    if (const std::size_t dot = pattern.find('.'); dot != std::string_view::npos)
    {
        pattern.remove_prefix(dot + 1);
    }
    const bool open = pattern.find_first_of("*?") != std::string_view::npos;
    return open ? "" : std::string(pattern).c_str();
}

FileQuestion MakeFileQuestion(FileSetup const& setup, DVectorSafe<DString> const& folders, AccessTest const& access)
{
    FileQuestion question;
    question.open = setup.mode == kLoadMode;
    question.overwritePrompt = setup.overwritePrompt;
    question.several = setup.several;
    question.locked = setup.locked;
    question.showFolders = setup.key && *setup.key && !setup.locked;
    question.filter = setup.filter;
    question.filterIndex = static_cast<unsigned int>(setup.index) + 1;
    question.extension = DefaultExtension(setup.defExt);
    question.templateId = setup.templateId;
    question.title = setup.caption;
    question.options = setup.options;
    if (question.showFolders)
    {
        question.folders = folders;
    }

    const DFile file(BDIMoniker(setup.initFile, nullptr).GetPathOnDisk().c_str());
    DString folder = file.GetPhysFilePath();
    if (folder.IsEmpty() && !folders.IsEmpty())
    {
        folder = folders[0]; // a locked dialog begins there too, though it doesn't offer the folders
    }
    if (!folder.IsEmpty() && CanBegin(folder) && access(folder.c_str(), question.open ? Access::Read : Access::Write))
    {
        question.startFolder = folder;
    }
    const DString name = file.GetPhysFileName();
    if (IsFileName(name))
    {
        question.startName = name;
    }
    return question;
}

bool IsWholeSelection(std::span<char const> buffer) noexcept
{
    return std::all_of(buffer.begin() + (buffer.size() > 2 ? buffer.size() - 2 : 0), buffer.end(),
                       [](char each) { return each == '\0'; });
}

DFileFrmt* FormatOfFilter(FormatOffer const& offer, unsigned int filterIndex)
{
    const unsigned int index = filterIndex - 1; // none is past every offer
    return index < static_cast<unsigned int>(offer.GetCount()) ? offer[static_cast<int>(index)] : nullptr;
}

bool AskForFiles(FileSetup const& setup, FileServices const& services)
{
    const FileQuestion question = MakeFileQuestion(setup, services.folders(setup.key), services.access);
    FileAnswer answer;
    if (!services.ask(question, answer) || !services.take(answer))
    {
        return false;
    }
    if (question.showFolders)
    {
        services.remember(setup.key);
    }
    return true;
}

} // namespace tavkit
