// PictureList.h - the pictures of a folder
#pragma once

#include <string>
#include <vector>

namespace workbench
{
/// A path that no longer depends on the current folder; as it was when the system refuses it.
[[nodiscard]] std::string MakeAbsolute(const std::string& path);

/// The pictures of a folder, by name, and which of them was asked for.
class PictureList
{
public:
    /// Takes the pictures of a folder, or those of the folder that a file lies in; then that file is among them
    /// whatever its extension. A path that isn't there leaves an empty list with a problem.
    void Load(const std::string& path);
    /// Scans the folder again, so that removed pictures come back. A file that was asked for stays in the list only
    /// while it is there.
    void Reload();
    /// Takes a picture off the list; the file is left alone. An index out of range changes nothing.
    void Remove(size_t index);
    /// Gives a picture's file another name in its folder. Its place in the list stays.
    /// @return why that can't be done, as a sentence; nothing has changed then. Empty on success.
    [[nodiscard]] std::string Rename(size_t index, const std::string& name);

    [[nodiscard]] const std::string& Folder() const { return m_folder; }
    /// Names without the folder, in the order of the list.
    [[nodiscard]] const std::vector<std::string>& Names() const { return m_names; }
    /// Index of the file that was asked for; -1 without one.
    [[nodiscard]] int Asked() const;
    /// The whole path of a picture.
    [[nodiscard]] std::string PathOf(size_t index) const;
    /// Size of a picture's file, rounded up; 0 when the file is gone.
    [[nodiscard]] int KiloBytesOf(size_t index) const;
    /// Why there is nothing to show, as a sentence; empty when there is something.
    [[nodiscard]] const std::string& Problem() const { return m_problem; }

private:
    void Scan();

    std::string m_folder; ///< without a separator at the end, save for the root of a drive
    std::string m_asked;  ///< name of the file that was asked for; empty for a folder
    std::vector<std::string> m_names;
    std::string m_problem;
};

/// The folder "samples" beside the program, or else beside one of the folders above it; the program's own folder when
/// there is none.
[[nodiscard]] std::string SamplesFolder();
} // namespace workbench
