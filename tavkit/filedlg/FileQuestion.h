// FileQuestion.h - what the system's file dialog is asked, and what becomes of its answer
#pragma once

#include "tavkit/filedlg/FormatOffer.h"
#include "tavkit/frame/services/DFile.h"
#include "tavkit/frame/services/DString.h"
#include "tavkit/frame/services/DVector.h"

#include <functional>
#include <span>

namespace tavkit
{

/// Longest folder, without a closing separator, that the system's dialog can begin in: one that has room for a file
/// name of a single character. A longer one brings the dialog down.
inline constexpr int kLongestStartFolder = 257;

/// What a FileDlg brings to the question. The texts are borrowed for its duration and may be null.
struct FileSetup
{
    int mode = 0;                ///< 0 opens, any other saves
    char const* filter = "";     ///< text of the filter
    int index = 0;               ///< filter to begin with, from 0
    char const* defExt = "";     ///< default extension or pattern
    char const* key = "";        ///< folder category; without one nothing is remembered
    char const* caption = "";    ///< title of the dialog
    char const* initFile = "";   ///< file, folder or path to begin with
    char const* options = "";    ///< what stands in "Options:"
    int templateId = 0;          ///< of the extra panel, 0 for the usual one
    bool several = false;        ///< several files may be picked
    bool locked = false;         ///< to the folder that the dialog begins in
    bool overwritePrompt = true; ///< ask before a file is overwritten
};

/// What the dialog is asked. The borrowed texts may be null.
struct FileQuestion
{
    bool open = true;
    bool overwritePrompt = true;
    bool several = false;
    bool locked = false;
    bool showFolders = false;     ///< offer `folders` to go to
    char const* filter = nullptr; ///< borrowed
    unsigned int filterIndex = 1; ///< filter to begin with, from 1
    int templateId = 0;
    DString extension; ///< for a name that has none, without a dot; "" for none
    DString title;
    DString startFolder;          ///< "" leaves it to the system
    DString startName;            ///< what stands in the file name box
    DVectorSafe<DString> folders; ///< empty unless they are shown
    DString options;
};

/// What the user answered with OK.
struct FileAnswer
{
    DVectorSafe<DFile> files;
    unsigned int filterIndex = 0; ///< the filter that stood at the end, from 1; 0 for none
    DString options;
    bool readOnly = false;
    bool editOnly = false;
};

/// A right that a folder is tested for, with the run-time's numbers.
enum class Access
{
    Exists = 0,
    Write = 2,
    Read = 4
};

/// True if the path gives that right.
using AccessTest = std::function<bool(char const* path, Access right)>;

/// What a question meets on its way.
struct FileServices
{
    std::function<DVectorSafe<DString>(char const* key)> folders; ///< of a category, the first is the newest
    AccessTest access;
    /// Shows the dialog. @return false if the user cancelled
    std::function<bool(FileQuestion const& question, FileAnswer& answer)> ask;
    /// Takes an answer over. @return false if it comes to nothing
    std::function<bool(FileAnswer const& answer)> take;
    std::function<void(char const* key)> remember; ///< puts the folder of the result to the front of a category
};

/// The extension that a name without one gets: that of the first pattern, without its dot. "" for a pattern that leaves
/// the extension open, and for null: the system would append it as it stands.
[[nodiscard]] DString DefaultExtension(char const* defExt);

/// What the dialog is asked for that setup.
/// @param folders  of the category; the first is where the dialog begins if the setup names no folder, shown or not
[[nodiscard]] FileQuestion MakeFileQuestion(FileSetup const& setup, DVectorSafe<DString> const& folders,
                                            AccessTest const& access);

/// Longest name that the system's dialog can begin with.
inline constexpr std::size_t kLongestStartName = 259;

/// True if all that was picked has fitted into the buffer: it ends with the zeros that close the last text. A dialog
/// that lets several files be picked may cut what doesn't fit without a word.
/// @param buffer  zero where nothing was written
[[nodiscard]] bool IsWholeSelection(std::span<char const> buffer) noexcept;

/// The format that a filter stands for; null for a filter beyond the offer, and for none.
/// @param filterIndex  from 1; 0 for none
[[nodiscard]] DFileFrmt* FormatOfFilter(FormatOffer const& offer, unsigned int filterIndex);

/// Asks, has the answer taken over, and has the folder remembered if there is a category and the dialog wasn't locked.
/// @return true if the result stands
bool AskForFiles(FileSetup const& setup, FileServices const& services);

} // namespace tavkit
