// OpenerRules.h - what FileDlg's dialogs are called, where they begin and what they remember
#pragma once

#include "tavkit/frame/Export.h"
#include "tavkit/frame/services/DString.h"

namespace tavkit
{

inline constexpr int kLoadMode = 0; ///< mode of a dialog; a mode that is neither does without what is special to both
inline constexpr int kSaveMode = 1;

/// When a dialog gets the title of its opener.
enum class TitleRule
{
    Always,      ///< always; every mode but loading counts as saving
    LoadAndSave, ///< for loading and saving; other modes leave the title that is there
    IfEmpty      ///< the same, but a title that is there stays
};

struct Titles
{
    char const* load;
    char const* save;
};

inline constexpr Titles kDataTitles = {"Load Data...",
                                       "Save Data..."}; ///< of dialogs for no kind of data in particular

/// The opener's title for a dialog; null if the one that is there stays.
/// @param isTitled  there is one
[[nodiscard]] TAVKIT_API char const* TitleFor(Titles const& titles, TitleRule rule, int mode, bool isTitled) noexcept;

inline constexpr char kNoFolder[] = "."; ///< what a folder is read as when none is stored

/// One kind of the workbench's own data.
struct OwnData
{
    char const* folderKey; ///< the last folder is kept under it in the profile; null for a kind that keeps none
    char const* category;  ///< of the folders that the dialog offers
    Titles titles;
    TitleRule rule;
};

inline constexpr OwnData kAnlySltn = {
    "AnlySltnDir", "SolutionFolders", {"Load Analysis Solution...", "Save Analysis Solution..."}, TitleRule::Always};
inline constexpr OwnData kDMDatabase = {
    "DMDatabase", "WorkspaceFolders", {"Open DM Database...", "Save DM Database as..."}, TitleRule::IfEmpty};
inline constexpr OwnData kWorkspace = {
    "Workspace", "WorkspaceFolders", {"Open Workspace...", "Save Workspace as..."}, TitleRule::IfEmpty};
inline constexpr OwnData kTMAMatch = {
    "TMAMatching", "WorkspaceFolders", {"Open TMA matching...", "Save TMA matching..."}, TitleRule::IfEmpty};
inline constexpr OwnData kTMAGridLayt = {
    "TMAGridLayouts", "WorkspaceFolders", {"Open TMA Grid Layouts...", "Save TMA Grid Layouts..."}, TitleRule::IfEmpty};
inline constexpr OwnData kPltLayt = {
    "PlateLayout", "WorkspaceFolders", {"Open Plate Layout...", "Save Plate Layout..."}, TitleRule::IfEmpty};
inline constexpr OwnData kTextSttng = {"TextRenderSettings",
                                       "WorkspaceFolders",
                                       {"Open Text Rendering Settings...", "Save Text Rendering Settings..."},
                                       TitleRule::IfEmpty};
inline constexpr OwnData kDoseDilutionSec = {"DoseDilutionSequence",
                                             "WorkspaceFolders",
                                             {"Open Dilution Sequence...", "Save Dilution Sequence..."},
                                             TitleRule::IfEmpty};
inline constexpr OwnData kPrjct = {
    "Project", "ProjectFolders", {"Open Project...", "Save Project as..."}, TitleRule::IfEmpty};
inline constexpr OwnData kClssHrchy = {
    "RuleBase", "RulesetFolders", {"Load Class Hierarchy...", "Save Class Hierarchy..."}, TitleRule::LoadAndSave};
inline constexpr OwnData kProcess = {
    "Process", "RulesetFolders", {"Load Process...", "Save Process..."}, TitleRule::LoadAndSave};
inline constexpr OwnData kJobSqnce = {
    "Job_Sequence", "RulesetFolders", {"Load Job Sequence...", "Save Job Sequence..."}, TitleRule::LoadAndSave};
inline constexpr OwnData kPrtcl = {
    nullptr, "RulesetFolders", {"Load Protocol...", "Save Protocol..."}, TitleRule::LoadAndSave};
inline constexpr OwnData kUserProps = {
    nullptr, "RulesetFolders", {"Load Customized Features...", "Save Customized Features..."}, TitleRule::LoadAndSave};

/// The path of a file in a folder. A backslash is supplied unless the folder ends with one, even behind "/" or ":".
/// @param folder  null and "" give the bare name
/// @param file    null gives the folder, closed
[[nodiscard]] TAVKIT_API DString PathIn(char const* folder, char const* file);

} // namespace tavkit
