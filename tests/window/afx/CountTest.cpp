// CountTest.cpp - counts of live system objects
#include <afxcount.h>
#include <gmock/gmock.h>

#ifdef NDEBUG
TEST(LiveCount, StaysZeroInAReleaseBuild)
{
    AfxCountCreated(AfxResource::Icon);
    EXPECT_EQ(AfxGetLiveCount(AfxResource::Icon), 0);
    AfxCountReleased(AfxResource::Icon);
}
#else
TEST(LiveCount, FollowsCreationAndReleaseForEachKindAlone)
{
    const int icons = AfxGetLiveCount(AfxResource::Icon);
    const int pens = AfxGetLiveCount(AfxResource::Pen);
    AfxCountCreated(AfxResource::Icon);
    AfxCountCreated(AfxResource::Icon);
    EXPECT_EQ(AfxGetLiveCount(AfxResource::Icon), icons + 2);
    EXPECT_EQ(AfxGetLiveCount(AfxResource::Pen), pens);
    AfxCountReleased(AfxResource::Icon);
    AfxCountReleased(AfxResource::Icon);
    EXPECT_EQ(AfxGetLiveCount(AfxResource::Icon), icons);
}
#endif
