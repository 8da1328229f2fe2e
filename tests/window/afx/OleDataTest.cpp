// OleDataTest.cpp - data objects and the clipboard
#include <afxole.h>
#include <gmock/gmock.h>

#include <shlobj.h>

#include <cstring>
#include <string>
#include <thread>

namespace
{
HGLOBAL BlockOf(const char* text)
{
    const HGLOBAL block = ::GlobalAlloc(GMEM_MOVEABLE, std::strlen(text) + 1);
    std::strcpy(static_cast<char*>(::GlobalLock(block)), text);
    ::GlobalUnlock(block);
    return block;
}

void PutOnClipboard(const char* text)
{
    ASSERT_TRUE(::OpenClipboard(nullptr));
    ::EmptyClipboard();
    ::SetClipboardData(CF_TEXT, BlockOf(text));
    ::CloseClipboard();
}

// Reads the text of a block and frees it.
std::string TakeText(HGLOBAL block)
{
    if (block == nullptr)
    {
        return "null";
    }
    const std::string text = static_cast<const char*>(::GlobalLock(block));
    ::GlobalUnlock(block);
    EXPECT_EQ(::GlobalFree(block), nullptr);
    return text;
}

// A data object with one text, which it keeps itself when told so, as a medium with an owner.
class TextObject : public IDataObject
{
public:
    explicit TextObject(bool keepsBlock) : m_keepsBlock(keepsBlock) {}
    virtual ~TextObject()
    {
        if (m_block != nullptr)
        {
            ::GlobalFree(m_block);
        }
    }

    STDMETHODIMP QueryInterface(REFIID iid, void** object) override
    {
        *object = iid == IID_IUnknown || iid == IID_IDataObject ? this : nullptr;
        return *object == nullptr ? E_NOINTERFACE : (AddRef(), S_OK);
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++m_refs; }
    STDMETHODIMP_(ULONG) Release() override { return --m_refs; } // lives on the stack
    STDMETHODIMP GetData(FORMATETC* format, STGMEDIUM* medium) override
    {
        if (QueryGetData(format) != S_OK)
        {
            return DV_E_FORMATETC;
        }
        medium->tymed = TYMED_HGLOBAL;
        medium->hGlobal = BlockOf("object");
        medium->pUnkForRelease = nullptr;
        if (m_keepsBlock)
        {
            m_block = medium->hGlobal;
            medium->pUnkForRelease = this;
            AddRef();
        }
        return S_OK;
    }
    STDMETHODIMP QueryGetData(FORMATETC* format) override
    {
        return format->cfFormat == CF_TEXT && (format->tymed & TYMED_HGLOBAL) != 0 ? S_OK : DV_E_FORMATETC;
    }
    STDMETHODIMP GetDataHere(FORMATETC*, STGMEDIUM*) override { return E_NOTIMPL; }
    STDMETHODIMP GetCanonicalFormatEtc(FORMATETC*, FORMATETC*) override { return E_NOTIMPL; }
    STDMETHODIMP SetData(FORMATETC*, STGMEDIUM*, BOOL) override { return E_NOTIMPL; }
    STDMETHODIMP EnumFormatEtc(DWORD, IEnumFORMATETC**) override { return E_NOTIMPL; }
    STDMETHODIMP DAdvise(FORMATETC*, DWORD, IAdviseSink*, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP DUnadvise(DWORD) override { return E_NOTIMPL; }
    STDMETHODIMP EnumDAdvise(IEnumSTATDATA**) override { return E_NOTIMPL; }

    ULONG m_refs = 1;
    HGLOBAL m_block = nullptr;

private:
    bool m_keepsBlock;
};
} // namespace

TEST(OleData, WithoutAnObjectThereIsNoData)
{
    COleDataObject data;
    EXPECT_FALSE(data.IsDataAvailable(CF_TEXT));
    EXPECT_EQ(data.GetGlobalData(CF_TEXT), nullptr);
    data.Release();
}

TEST(OleData, ReadsTheTextOnTheClipboard)
{
    ASSERT_TRUE(AfxOleInit());
    PutOnClipboard("12.5");
    COleDataObject data;
    ASSERT_TRUE(data.AttachClipboard());
    EXPECT_TRUE(data.IsDataAvailable(CF_TEXT));
    EXPECT_FALSE(data.IsDataAvailable(CF_WAVE));
    EXPECT_EQ(TakeText(data.GetGlobalData(CF_TEXT)), "12.5");
    EXPECT_EQ(TakeText(data.GetGlobalData(CF_TEXT)), "12.5") << "each handle is the caller's own";
    EXPECT_EQ(data.GetGlobalData(CF_WAVE), nullptr);
}

TEST(OleData, AttachesTheClipboardOnlyWhenOleIsStarted)
{
    BOOL attached = TRUE;
    BOOL attachedAfterStart = FALSE;
    std::thread([&] {
        COleDataObject data;
        attached = data.AttachClipboard();
        EXPECT_TRUE(AfxOleInit());
        EXPECT_TRUE(AfxOleInit()) << "a second start changes nothing";
        attachedAfterStart = data.AttachClipboard();
        data.Release();
        AfxOleTerm();
        AfxOleTerm();
    }).join();
    EXPECT_FALSE(attached);
    EXPECT_TRUE(attachedAfterStart);
}

TEST(OleData, ReleasesItsReferenceWhenItWasToldTo)
{
    TextObject object(false);
    {
        COleDataObject data;
        object.AddRef();
        data.Attach(&object);
        EXPECT_TRUE(data.IsDataAvailable(CF_TEXT));
        EXPECT_EQ(TakeText(data.GetGlobalData(CF_TEXT)), "object");
    }
    EXPECT_EQ(object.m_refs, 1U);
    {
        COleDataObject data;
        data.Attach(&object, FALSE);
    }
    EXPECT_EQ(object.m_refs, 1U);
}

TEST(OleData, AttachingAnotherObjectReleasesTheFirst)
{
    TextObject first(false), second(false);
    COleDataObject data;
    first.AddRef();
    data.Attach(&first);
    data.Attach(&second, FALSE);
    EXPECT_EQ(first.m_refs, 1U);
    EXPECT_EQ(second.m_refs, 1U);
}

TEST(OleData, ABlockThatBelongsToTheObjectIsCopied)
{
    TextObject object(true);
    COleDataObject data;
    data.Attach(&object, FALSE);
    EXPECT_EQ(TakeText(data.GetGlobalData(CF_TEXT)), "object");
    EXPECT_EQ(object.m_refs, 1U) << "the medium was released";
}

TEST(OleData, AFormatGivenInFullIsAskedAsItStands)
{
    TextObject object(false);
    COleDataObject data;
    data.Attach(&object, FALSE);
    FORMATETC files = {0, nullptr, DVASPECT_CONTENT, -1, TYMED_ISTREAM};
    EXPECT_FALSE(data.IsDataAvailable(CF_TEXT, &files));
    files.tymed = TYMED_HGLOBAL;
    EXPECT_TRUE(data.IsDataAvailable(CF_TEXT, &files));
}
