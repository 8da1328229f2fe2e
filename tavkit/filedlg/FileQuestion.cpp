// FileQuestion.cpp
#include "tavkit/filedlg/FileQuestion.h"

#include "tavkit/frame/services/BDIMoniker.h"

namespace tavkit
{

namespace
{

/// Names that mean a folder can't be the file to begin with.
[[nodiscard]] bool IsFileName(DString const& name) { return !name.IsEmpty() && !(name == ".") && !(name == ".."); }

} // namespace

FileQuestion MakeFileQuestion(FileSetup const& setup, DVectorSafe<DString> const& folders, AccessTest const& access)
{
    FileQuestion question;
    question.open = setup.mode == 0;
    question.overwritePrompt = setup.overwritePrompt;
    question.several = setup.several;
    question.locked = setup.locked;
    question.showFolders = setup.key && *setup.key && !setup.locked;
    question.filter = setup.filter;
    question.filterIndex = static_cast<unsigned int>(setup.index) + 1;
    question.defExt = setup.defExt;
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
    if (!folder.IsEmpty() && access(folder.c_str(), question.open ? Access::Read : Access::Write))
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
