// ExceptionsTest.cpp - the framework's exceptions
#include "support/Modal.h"

#include <afxwin.h>
#include <gmock/gmock.h>

#include <string>

namespace
{
using Thrower = void(AFXAPI*)();

struct ThrowCase
{
    Thrower pfnThrow;
    CRuntimeClass* pClass;
    bool hasText;
};

class AfxThrow : public testing::TestWithParam<ThrowCase>
{
};

// Tells of its end, so that a test sees who deletes it.
class CWatchedException : public CException
{
public:
    CWatchedException(BOOL bAutoDelete, bool& rDeleted) : CException(bAutoDelete), m_rDeleted(rDeleted) {}
    ~CWatchedException() override { m_rDeleted = true; }

private:
    bool& m_rDeleted;
};
} // namespace

TEST_P(AfxThrow, IsCaughtByPointerAsTheBaseAndGivenBackMoreThanOnce)
{
    for (int round = 0; round < 2; round++)
    {
        try
        {
            GetParam().pfnThrow();
        }
        catch (CException* e)
        {
            EXPECT_TRUE(e->IsKindOf(GetParam().pClass));
            char text[100] = "old";
            UINT help = 99;
            EXPECT_EQ(e->GetErrorMessage(text, sizeof text, &help) != FALSE, GetParam().hasText);
            EXPECT_EQ(text[0] != '\0', GetParam().hasText);
            EXPECT_EQ(help, 0U);
            e->Delete();
        }
    }
}

INSTANTIATE_TEST_SUITE_P(
    All, AfxThrow,
    testing::Values(ThrowCase{&AfxThrowMemoryException, RUNTIME_CLASS(CMemoryException), true},
                    ThrowCase{&AfxThrowResourceException, RUNTIME_CLASS(CResourceException), true},
                    ThrowCase{&AfxThrowNotSupportedException, RUNTIME_CLASS(CNotSupportedException), true},
                    ThrowCase{&AfxThrowUserException, RUNTIME_CLASS(CUserException), false},
                    ThrowCase{&AfxThrowInvalidArgException, RUNTIME_CLASS(CInvalidArgException), true}),
    [](const auto& info) { return std::string(info.param.pClass->m_lpszClassName); });

TEST(Exception, IsCaughtAsItsOwnClassToo)
{
    EXPECT_THROW(AfxThrowResourceException(), CResourceException*);
    EXPECT_THROW(AfxThrowInvalidArgException(), CInvalidArgException*);
}

TEST(Exception, DeleteEndsAnObjectFromTheHeap)
{
    bool deleted = false;
    try
    {
        throw new CWatchedException(TRUE, deleted);
    }
    catch (CException* e)
    {
        e->Delete();
    }
    EXPECT_TRUE(deleted);
}

TEST(Exception, DeleteLeavesAStaticObjectAlone)
{
    bool deleted = false;
    {
        CWatchedException exception(FALSE, deleted);
        exception.Delete();
        EXPECT_FALSE(deleted);
    }
}

TEST(Exception, HasNoTextByItself)
{
    CException exception(FALSE);
    char text[] = "old";
    EXPECT_FALSE(exception.GetErrorMessage(text, sizeof text));
    EXPECT_STREQ(text, "");
}

TEST(Exception, ItsTextIsCutToTheBufferAndTerminated)
{
    CMemoryException exception(FALSE);
    char text[6] = {'x', 'x', 'x', 'x', 'x', 'x'};
    EXPECT_TRUE(exception.GetErrorMessage(text, 5));
    EXPECT_EQ(std::string(text), "Ther");
    EXPECT_EQ(text[5], 'x');
    EXPECT_TRUE(exception.GetErrorMessage(nullptr, 0));
}

TEST(Exception, ReportErrorShowsTheTextInAMessageBox)
{
    std::string shown;
    const support::ModalHelper box([] { return support::FindThreadWindow("#32770", nullptr); },
                                   [&](HWND dialog) {
                                       constexpr int kMessageText = 0xFFFF;
                                       char text[200] = "";
                                       ::GetDlgItemTextA(dialog, kMessageText, text, sizeof text);
                                       shown = text;
                                       support::PressButton(dialog, IDYES);
                                   });
    CMemoryException exception(FALSE);
    EXPECT_EQ(exception.ReportError(MB_YESNO), IDYES);
    EXPECT_TRUE(box.Done());
    EXPECT_EQ(shown, "There is not enough memory.");
}

TEST(Exception, ReportErrorWithoutATextSaysSo)
{
    std::string shown;
    const support::ModalHelper box([] { return support::FindThreadWindow("#32770", nullptr); },
                                   [&](HWND dialog) {
                                       constexpr int kMessageText = 0xFFFF;
                                       char text[200] = "";
                                       ::GetDlgItemTextA(dialog, kMessageText, text, sizeof text);
                                       shown = text;
                                       support::PressButton(dialog, IDOK);
                                   });
    CUserException exception(FALSE);
    EXPECT_EQ(exception.ReportError(), IDOK);
    EXPECT_TRUE(box.Done());
    EXPECT_EQ(shown, "The operation failed; there is no further information.");
}
