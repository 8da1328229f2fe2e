// ProjectFileTest.cpp - what a project and a workspace are in a file
#include "workbench/ProjectFile.h"

#include "tavkit/frame/services/BDIDrvr.h"

#include <gmock/gmock.h>

#include <string>

namespace
{
using namespace workbench;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

constexpr char kHome[] = "C:\\data\\trial";

repository::NodeRecord Imported(unsigned int kind, const std::string& moniker)
{
    return {kind, moniker, ImportedLabel(moniker)};
}

ProjectContent Example()
{
    return {"C:\\data\\trial\\pictures",
            {Imported(bdiRaster, "C:\\data\\trial\\more\\slides.tif?page=1&stain=HE"),
             Imported(bdiTable, "D:\\tables\\objects.csv"), Imported(bdiVector, "\\\\server\\share\\cells.shp")}};
}

FileElement Element(const std::string& name, std::vector<std::pair<std::string, std::string>> attributes,
                    std::vector<FileElement> children = {})
{
    return {name, std::move(attributes), std::move(children)};
}

/// The problem of a project, which must leave the result alone.
std::string ProblemOf(const FileElement& root)
{
    ProjectContent result{"before", {}};
    std::string problem = ReadProject(root, kHome, result);
    if (!problem.empty())
    {
        EXPECT_EQ(result, (ProjectContent{"before", {}}));
    }
    return problem;
}

TEST(ProjectFile, ComesBackAsItWasWritten)
{
    ProjectContent result;
    EXPECT_EQ(ReadProject(WriteProject(Example(), kHome), kHome, result), "");
    EXPECT_EQ(result, Example());
}

TEST(ProjectFile, WhatLiesBesideTheFileMovesWithIt)
{
    const FileElement root = WriteProject(Example(), kHome);
    EXPECT_EQ(root, Element("Project", {{"folder", "pictures"}},
                            {Element("Picture", {{"path", "more\\slides.tif?page=1&stain=HE"}}),
                             Element("Table", {{"path", "D:\\tables\\objects.csv"}}),
                             Element("Vector", {{"path", "\\\\server\\share\\cells.shp"}})}));
    ProjectContent moved;
    EXPECT_EQ(ReadProject(root, "E:\\elsewhere", moved), "");
    EXPECT_EQ(moved.folder, "E:\\elsewhere\\pictures");
    EXPECT_EQ(moved.imported[0].id, "E:\\elsewhere\\more\\slides.tif?page=1&stain=HE");
    EXPECT_EQ(moved.imported[1].id, "D:\\tables\\objects.csv");
    EXPECT_EQ(moved.imported[2].id, "\\\\server\\share\\cells.shp");
}

TEST(ProjectFile, TheFolderOfTheFileItselfIsADot)
{
    for (const char* const folder : {"C:\\data\\trial", "c:\\DATA\\trial", "C:\\data\\trial\\"})
    {
        EXPECT_THAT(WriteProject({folder, {}}, kHome).attributes, ElementsAre(testing::Pair("folder", "."))) << folder;
    }
    EXPECT_THAT(WriteProject({"C:\\data\\trial2", {}}, kHome).attributes,
                ElementsAre(testing::Pair("folder", "C:\\data\\trial2")));
    ProjectContent result;
    EXPECT_EQ(ReadProject(Element("Project", {{"folder", "."}}), kHome, result), "");
    EXPECT_EQ(result.folder, kHome);
}

TEST(ProjectFile, TheRootOfADriveIsAHomeToo)
{
    const ProjectContent project{"C:\\", {Imported(bdiRaster, "C:\\a.tif")}};
    const FileElement root = WriteProject(project, "C:\\");
    EXPECT_EQ(root, Element("Project", {{"folder", "."}}, {Element("Picture", {{"path", "a.tif"}})}));
    ProjectContent result;
    EXPECT_EQ(ReadProject(root, "C:\\", result), "");
    EXPECT_EQ(result, project);
}

TEST(ProjectFile, WhatIsntKnownIsPassedOver)
{
    ProjectContent result;
    EXPECT_EQ(ReadProject(Element("Project", {{"version", "9"}, {"folder", "a"}},
                                  {Element("Movie", {}), Element("Picture", {{"path", "b.tif"}, {"colour", "red"}})}),
                          kHome, result),
              "");
    EXPECT_EQ(result.folder, "C:\\data\\trial\\a");
    EXPECT_THAT(result.imported, ElementsAre(Imported(bdiRaster, "C:\\data\\trial\\b.tif")));
}

TEST(ProjectFile, AnotherElementIsNoProject)
{
    EXPECT_THAT(ProblemOf(Element("Workspace", {{"folder", "a"}})), HasSubstr("isn't a project"));
    EXPECT_THAT(ProblemOf(Element("", {})), HasSubstr("isn't a project"));
    EXPECT_THAT(ProblemOf(Element("project", {{"folder", "a"}})), HasSubstr("isn't a project"));
}

TEST(ProjectFile, WithoutAFolderThereIsNoProject)
{
    for (const std::string& folder :
         {std::string(), std::string("a\nb"), std::string("a\0b", 3), std::string(kMostPath + 1, 'x')})
    {
        EXPECT_THAT(ProblemOf(Element("Project", {{"folder", folder}})), HasSubstr("which folder"));
    }
    EXPECT_THAT(ProblemOf(Element("Project", {})), HasSubstr("which folder"));
    EXPECT_EQ(ProblemOf(Element("Project", {{"folder", std::string(kMostPath, 'x')}})), "");
}

TEST(ProjectFile, APathThatCantBeOneIsAProblem)
{
    EXPECT_THAT(ProblemOf(Element("Project", {{"folder", "a"}}, {Element("Table", {})})), HasSubstr("no path"));
    EXPECT_THAT(ProblemOf(Element("Project", {{"folder", "a"}}, {Element("Picture", {{"path", "a\tb"}})})),
                HasSubstr("no path"));
}

TEST(ProjectFile, TooManyLayersAreAProblem)
{
    FileElement root = Element("Project", {{"folder", "a"}});
    root.children.assign(kMostImported, Element("Picture", {{"path", "b.tif"}}));
    EXPECT_EQ(ProblemOf(root), "");
    root.children.push_back(root.children.back());
    EXPECT_THAT(ProblemOf(root), HasSubstr("more than 10000"));
}

TEST(ProjectFile, OnlyWhatHasAKindIsWritten)
{
    EXPECT_THAT(WriteProject({"C:\\", {{bdiOther, "C:\\link", "link"}, {0, "", "group"}}}, kHome).children, SizeIs(0));
}

TEST(WorkspaceFile, ComesBackAsItWasWritten)
{
    for (const bool scaleBar : {false, true})
    {
        const WorkspaceContent workspace{Example(), "C:\\data\\trial\\pictures\\a.tif?page=2", "D:\\t.csv", "0.5",
                                         scaleBar};
        const FileElement root = WriteWorkspace(workspace, kHome);
        EXPECT_EQ(root.attributes[0].second, "pictures\\a.tif?page=2");
        WorkspaceContent result;
        EXPECT_EQ(ReadWorkspace(root, kHome, result), "");
        EXPECT_EQ(result, workspace);
    }
}

TEST(WorkspaceFile, NothingShownStaysNothing)
{
    const WorkspaceContent workspace{{"C:\\", {}}, "", "", "", true};
    WorkspaceContent result;
    EXPECT_EQ(ReadWorkspace(WriteWorkspace(workspace, kHome), kHome, result), "");
    EXPECT_EQ(result, workspace);
}

TEST(WorkspaceFile, WithoutAProjectItIsNone)
{
    WorkspaceContent result;
    EXPECT_THAT(ReadWorkspace(WriteProject(Example(), kHome), kHome, result), HasSubstr("isn't a workspace"));
    EXPECT_THAT(ReadWorkspace(Element("Workspace", {}), kHome, result), HasSubstr("no project"));
    EXPECT_THAT(ReadWorkspace(Element("Workspace", {}, {Element("Project", {})}), kHome, result),
                HasSubstr("which folder"));
    EXPECT_EQ(result, WorkspaceContent());
}

TEST(WorkspaceFile, WhatIsShownMustBeAPathOfAPossibleLength)
{
    for (const char* const name : {"picture", "table", "pixelSize"})
    {
        for (const std::string& value : {std::string(kMostPath + 1, 'x'), std::string("a\nb")})
        {
            FileElement root = WriteWorkspace({{"C:\\", {}}, "", "", "", true}, kHome);
            for (auto& attribute : root.attributes)
            {
                attribute.second = attribute.first == name ? value : attribute.second;
            }
            WorkspaceContent result;
            EXPECT_THAT(ReadWorkspace(root, kHome, result), HasSubstr("makes no sense")) << name;
        }
    }
}

TEST(ImportedLabel, IsTheNameOfTheFileAndItsOptions)
{
    EXPECT_EQ(ImportedLabel("C:\\a\\b.tif"), "b.tif");
    EXPECT_EQ(ImportedLabel("C:\\a\\b.tif?page=1&stain=HE"), "b.tif, page=1&stain=HE");
    EXPECT_EQ(ImportedLabel("b.tif?"), "b.tif");
    EXPECT_EQ(ImportedLabel(""), "");
}
} // namespace
