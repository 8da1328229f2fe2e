#include "workbench/ObjectPlace.h"

#include <gmock/gmock.h>

namespace
{
using namespace workbench;
using testing::ElementsAre;
using testing::FieldsAre;
using testing::Optional;
using testing::SizeIs;

TEST(ObjectColumns, AreFoundByTheirNamesInAnyCase)
{
    EXPECT_EQ(FindObjectColumns({"Nr", "x", "Y", "CLASS"}), (ObjectColumns{1, 2, 3}));
    EXPECT_EQ(FindObjectColumns({"X", "X", "Classes"}), (ObjectColumns{0, -1, -1})) << "the first of several";
    EXPECT_EQ(FindObjectColumns({}), ObjectColumns{});
    EXPECT_TRUE(FindObjectColumns({"X", "Y"}).HavePlace());
    EXPECT_FALSE(FindObjectColumns({"X", "Class"}).HavePlace());
}

TEST(ObjectPlaceText, IsReadFromTwoNumbers)
{
    EXPECT_THAT(ParsePlace("305.5", " 0.25 "), Optional(ObjectPlace{305.5, 0.25}));
    EXPECT_EQ(ParsePlace("", "1"), std::nullopt);
    EXPECT_EQ(ParsePlace("1", "---"), std::nullopt);
    EXPECT_EQ(ParsePlace(nullptr, nullptr), std::nullopt);
}

TEST(ObjectPlaceText, IsWrittenWithAsFewDigitsAsTellIt)
{
    EXPECT_EQ(PlaceText({305.5, 3}), "305.5, 3");
    EXPECT_EQ(PlaceText({0.1, -2.25}), "0.1, -2.25");
}

TEST(ObjectPlacePoint, IsTheMiddleOfAPixelForAWholeNumber)
{
    const RECT shown{100, 50, 140, 70}; // 10 by 5 pixels, four times as large
    EXPECT_THAT(PointOfPlace({0, 0}, {10, 5}, shown), Optional(FieldsAre(102, 52)));
    EXPECT_THAT(PointOfPlace({9, 4}, {10, 5}, shown), Optional(FieldsAre(138, 68)));
    EXPECT_THAT(PointOfPlace({4.5, 2}, {10, 5}, shown), Optional(FieldsAre(120, 60)));
}

TEST(ObjectPlacePoint, OfAPictureShownSmallerLiesInTheSamePart)
{
    EXPECT_THAT(PointOfPlace({500, 250}, {1000, 500}, {0, 0, 100, 50}), Optional(FieldsAre(50, 25)));
}

TEST(ObjectPlacePoint, IsNoneOutsideThePicture)
{
    const RECT shown{0, 0, 100, 50};
    for (const ObjectPlace& place : {ObjectPlace{-1, 0}, ObjectPlace{10, 0}, ObjectPlace{0, -0.6}, ObjectPlace{0, 5},
                                     ObjectPlace{1e300, 0}, ObjectPlace{0, -1e300}})
    {
        EXPECT_EQ(PointOfPlace(place, {10, 5}, shown), std::nullopt) << place.x << ", " << place.y;
    }
    EXPECT_EQ(PointOfPlace({0, 0}, {0, 0}, shown), std::nullopt) << "a picture without pixels";
}

TEST(ClassNames, AreKeptOnceInTheOrderOfTheirNames)
{
    ClassNames names;
    for (const char* name : {"Star", "Galaxy", "Star", "", "Galaxy"})
    {
        names.Note(name);
    }
    EXPECT_THAT(names.All(), ElementsAre("", "Galaxy", "Star"));
    names.Clear();
    EXPECT_THAT(names.All(), SizeIs(0));
}

TEST(ClassNames, AreNotKeptWithoutEnd)
{
    ClassNames names;
    for (std::size_t i = 0; i < 2 * ClassNames::kMost; ++i)
    {
        names.Note(std::to_string(i));
    }
    EXPECT_THAT(names.All(), SizeIs(ClassNames::kMost));
}
} // namespace
