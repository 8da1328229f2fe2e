#include "workbench/TourPage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace
{
using testing::HasSubstr;
using testing::Not;
using workbench::FileNamePart;
using workbench::MakeTourPage;

TEST(TourPage, ShowsEveryPictureUnderItsCaptionInOrder)
{
    const std::string page = MakeTourPage({{"01-a.png", "First."}, {"02-b.png", "Second."}}, {});
    const size_t first = page.find("<figcaption>First.</figcaption>\n<img src=\"01-a.png\"");
    const size_t second = page.find("<figcaption>Second.</figcaption>\n<img src=\"02-b.png\"");
    ASSERT_NE(first, std::string::npos);
    ASSERT_NE(second, std::string::npos);
    EXPECT_LT(first, second);
    EXPECT_THAT(page, HasSubstr("2 pictures; everything was as expected."));
}

TEST(TourPage, TellsWhatFailedAndThenClaimsNothing)
{
    const std::string page = MakeTourPage({}, {"Not so: the title."});
    EXPECT_THAT(page, HasSubstr("<li>Not so: the title.</li>"));
    EXPECT_THAT(page, Not(HasSubstr("as expected")));
}

TEST(TourPage, TakesNoTextForMarkup)
{
    const std::string page = MakeTourPage({{"a\"b.png", "<b> & \"c\""}}, {"<script>"});
    EXPECT_THAT(page, HasSubstr("<figcaption>&lt;b&gt; &amp; &quot;c&quot;</figcaption>"));
    EXPECT_THAT(page, HasSubstr("src=\"a&quot;b.png\""));
    EXPECT_THAT(page, HasSubstr("&lt;script&gt;"));
    EXPECT_THAT(page, Not(HasSubstr("<script>")));
}

TEST(FileNamePart, KeepsLettersAndDigitsAndJoinsTheRest)
{
    EXPECT_EQ(FileNamePart("picture-cell_float.TIF"), "picture-cell-float-tif");
    EXPECT_EQ(FileNamePart("..\\a  b?.png!"), "a-b-png");
    EXPECT_EQ(FileNamePart(""), "");
    EXPECT_EQ(FileNamePart("\xC4\xD6"), "");
}
} // namespace
