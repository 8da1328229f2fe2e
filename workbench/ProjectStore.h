// ProjectStore.h - projects and workspaces as XML files
#pragma once

#include "workbench/ProjectFile.h"

#include <string>

namespace workbench
{
// Reading. @return why the file can't be read, as a sentence; the result is as it was then. Empty on success.

[[nodiscard]] std::string LoadProject(const std::string& path, ProjectContent& result);
[[nodiscard]] std::string LoadWorkspace(const std::string& path, WorkspaceContent& result);

// Writing. False, and a file that was there before as it was, if it can't be written.

[[nodiscard]] bool SaveProject(const std::string& path, const ProjectContent& project);
[[nodiscard]] bool SaveWorkspace(const std::string& path, const WorkspaceContent& workspace);
} // namespace workbench
