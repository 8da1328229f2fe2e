#include "WorkbenchFixture.h"

#include <fstream>
#include <iterator>
#include <regex>

namespace e2e
{
namespace
{
constexpr DWORD kTourMs = 180'000;
constexpr int kFewestPictures = 60; // six samples and further states
constexpr std::string_view kPngMark("\x89PNG\r\n\x1A\n", 8);

using WorkbenchTour = WorkbenchTest;

std::string ReadBytes(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST_F(WorkbenchTour, LeavesAPageWithAPictureOfEveryStateAndEndsWell)
{
    const auto out = Folder() / "new" / "tour"; // the tour makes its folder
    const WorkbenchProcess tour("--tour " + Quoted(out) + " " + Quoted(support::SamplePath("")), false);
    EXPECT_EQ(tour.WaitForExit(kTourMs), 0u);

    const std::string page = ReadBytes(out / "index.html");
    EXPECT_THAT(page, testing::HasSubstr("everything was as expected"));
    const std::regex image("<img src=\"([^\"]+)\"");
    int count = 0;
    for (std::sregex_iterator match(page.begin(), page.end(), image), end; match != end; ++match, ++count)
    {
        const std::string picture = ReadBytes(out / (*match)[1].str());
        EXPECT_TRUE(picture.starts_with(kPngMark)) << (*match)[1];
    }
    EXPECT_GE(count, kFewestPictures);
}

TEST_F(WorkbenchTour, FailsWhenItsFolderCantBeMade)
{
    const std::string file = WriteFile("taken", "a file, not a folder");
    const WorkbenchProcess tour("--tour " + Quoted(file) + " " + Quoted(support::SamplePath("")), false);
    EXPECT_EQ(tour.WaitForExit(kTourMs), 1u);
    EXPECT_EQ(ReadBytes(file), "a file, not a folder");
}

TEST_F(WorkbenchTour, FailsWithoutPicturesToShow)
{
    const auto out = Folder() / "tour";
    const auto empty = Folder() / "empty";
    std::filesystem::create_directory(empty);
    const WorkbenchProcess tour("--tour " + Quoted(out) + " " + Quoted(empty), false);
    EXPECT_EQ(tour.WaitForExit(kTourMs), 1u);
    EXPECT_THAT(ReadBytes(out / "index.html"), testing::HasSubstr("the list holds the samples"));
}
} // namespace
} // namespace e2e
