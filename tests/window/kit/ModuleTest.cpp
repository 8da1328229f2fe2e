// ModuleTest.cpp - what stands when the module is loaded, and what goes when it is unloaded

#include "ImportHook.h"
#include "Picture.h"

#include "support/WindowTest.h"
#include "tavkit/TavKit.h"
#include "tavkit/frame/ModuleHandle.h"

#include <afxdll_.h>
#include <objidl.h>
#include <gdiplus.h>

#include <string>
#include <vector>

namespace
{

// Constructors of a host's globals run when the library stands already.
struct AtStart
{
    unsigned int repaintChild = CTavDockBar::wm_TavDockBarRepaintChld;
    unsigned int propChanged = CTavPropList::wm_PropChanged;
    unsigned int hyperlinkClicked = WM_XHYPERLINK_CLICKED;
    int gripImages = cdxCSizeIconCtrl::M_ilImage.GetImageCount();
};
AtStart const g_atStart;

constexpr unsigned int kFirstRegistered = 0xC000;
constexpr unsigned int kLastRegistered = 0xFFFF;

class Module : public support::WindowTest
{
};

TEST_F(Module, HasItsMessagesBeforeTheFirstConstructorOfAHostObjectRuns)
{
    EXPECT_GE(g_atStart.repaintChild, kFirstRegistered);
    EXPECT_LE(g_atStart.repaintChild, kLastRegistered);
    EXPECT_EQ(g_atStart.repaintChild, CTavDockBar::wm_TavDockBarRepaintChld);
    EXPECT_EQ(g_atStart.propChanged, CTavPropList::wm_PropChanged);
    EXPECT_EQ(g_atStart.hyperlinkClicked, WM_XHYPERLINK_CLICKED);
    EXPECT_EQ(g_atStart.gripImages, 1);
}

TEST_F(Module, RegistersItsMessagesByName)
{
    EXPECT_EQ(CTavDockBar::wm_TavDockBarRepaintChld, ::RegisterWindowMessageA("WM_TAV_DOCKBAR_REPAINT_CHILD"));
    EXPECT_EQ(CTavPropList::wm_PropChanged, ::RegisterWindowMessageA("WM_TAV_CTRL_PROPLIST_PROPCHANGED"));
    EXPECT_EQ(WM_XHYPERLINK_CLICKED, ::RegisterWindowMessageA("WM_XHYPERLINK_CLICKED"));
}

TEST_F(Module, KeepsTheSystemsSizeGripAsAMaskedListOfOneImage)
{
    CBitmap grip;
    ASSERT_TRUE(grip.Attach(::LoadBitmapA(nullptr, MAKEINTRESOURCEA(32766))));
    BITMAP info{};
    grip.GetBitmap(&info);
    auto& list = cdxCSizeIconCtrl::M_ilImage;
    EXPECT_EQ(list.GetImageCount(), 1);
    EXPECT_EQ(list.m_szImage, CSize(info.bmWidth, info.bmHeight));
    int width = 0;
    int height = 0;
    ASSERT_TRUE(::ImageList_GetIconSize(list.GetSafeHandle(), &width, &height));
    EXPECT_EQ(CSize(width, height), list.m_szImage);
    IMAGEINFO image{};
    ASSERT_TRUE(::ImageList_GetImageInfo(list.GetSafeHandle(), 0, &image));
    EXPECT_NE(image.hbmMask, nullptr);
}

TEST_F(Module, DrawsTheSizeGripWithItsBackgroundTransparent)
{
    CBitmap grip;
    ASSERT_TRUE(grip.Attach(::LoadBitmapA(nullptr, MAKEINTRESOURCEA(32766))));
    CSize const size = cdxCSizeIconCtrl::M_ilImage.m_szImage;
    constexpr COLORREF kBehind = RGB(12, 200, 34);
    Picture drawn(size.cx, size.cy, kBehind);
    ::ImageList_Draw(cdxCSizeIconCtrl::M_ilImage.GetSafeHandle(), 0, drawn.Handle(), 0, 0, ILD_TRANSPARENT);
    CDC source;
    source.CreateCompatibleDC(nullptr);
    HGDIOBJ const old = ::SelectObject(source.m_hDC, grip.m_hObject);
    int transparent = 0;
    for (int y = 0; y < size.cy; ++y)
    {
        for (int x = 0; x < size.cx; ++x)
        {
            // In a grip of one bit a pixel white is the background, whatever colour is named for the mask.
            COLORREF const pixel = ::GetPixel(source.m_hDC, x, y);
            bool const background = pixel == ::GetSysColor(COLOR_BTNFACE) || pixel == RGB(255, 255, 255);
            transparent += background;
            EXPECT_EQ(drawn.At(x, y) == kBehind, background) << x << ", " << y;
        }
    }
    ::SelectObject(source.m_hDC, old);
    EXPECT_GT(transparent, 0);
    EXPECT_LT(transparent, size.cx * size.cy);
}

TEST_F(Module, AnOemImageListOfAnUnknownBitmapIsEmpty)
{
    cdxCSizeIconCtrl::AutoOEMImageList const list(1, RGB(0, 0, 0));
    EXPECT_EQ(list.GetSafeHandle(), nullptr);
    EXPECT_EQ(list.m_szImage, CSize(0, 0));
}

TEST_F(Module, SharesTheSizeCursorOfTheSystem)
{
    EXPECT_NE(cdxCSizeIconCtrl::M_hcSize, nullptr);
    EXPECT_EQ(cdxCSizeIconCtrl::M_hcSize, ::LoadCursorA(nullptr, MAKEINTRESOURCEA(32642)));
}

TEST_F(Module, NamesTheProfileSectionOfWindowPositions)
{
    EXPECT_STREQ(cdxCDynamicWndEx::M_lpszAutoPosProfileSection, "WindowPositions");
}

TEST_F(Module, StartsWithoutDockBars) { EXPECT_EQ(CTavDockBar::glAllDockBars.GetCount(), 0); }

TEST_F(Module, KnowsItsOwnHandle) { EXPECT_EQ(tavkit::ModuleInstance(), ::GetModuleHandleA("TavKit.dll")); }

TEST_F(Module, StandsInTheChainOfResources)
{
    EXPECT_EQ(AfxFindResourceHandle(MAKEINTRESOURCE(583), RT_DIALOG), ::GetModuleHandleA("TavKit.dll"));
    EXPECT_NE(AfxGetResourceHandle(), ::GetModuleHandleA("TavKit.dll")) << "the host's own resources come first";
}

// A second copy of the library, loaded and unloaded: what the first one does at load and unload can be seen on it.
class LoadedCopy
{
public:
    LoadedCopy()
    {
        char source[MAX_PATH] = "";
        ::GetModuleFileNameA(::GetModuleHandleA("TavKit.dll"), source, sizeof source);
        m_file = std::string(source, std::strlen(source) - std::strlen("TavKit.dll")) + "TavKitCopy.dll";
        EXPECT_TRUE(::CopyFileA(source, m_file.c_str(), FALSE));
        m_module = ::LoadLibraryA(m_file.c_str());
    }
    ~LoadedCopy()
    {
        Unload();
        ::DeleteFileA(m_file.c_str());
    }
    LoadedCopy(LoadedCopy const&) = delete;
    LoadedCopy& operator=(LoadedCopy const&) = delete;

    [[nodiscard]] HMODULE Handle() const { return m_module; }
    void Unload()
    {
        if (m_module != nullptr)
        {
            ::FreeLibrary(m_module);
            m_module = nullptr;
        }
    }

private:
    std::string m_file;
    HMODULE m_module = nullptr;
};

std::vector<HMODULE> ModulesInChain()
{
    std::vector<HMODULE> modules;
    for (CDynLinkLibrary* library = AfxGetModuleState()->m_pLibraryList; library; library = library->m_pNextDLL)
    {
        modules.push_back(library->m_hModule);
    }
    return modules;
}

TEST_F(Module, LeavesTheHostsListsAsTheyWereWhenItIsLoaded)
{
    AFX_MODULE_STATE const* const state = AfxGetModuleState();
    CRuntimeClass const* const classes = state->m_pClassList;
    void const* const factories = state->m_pFactoryList;
    LoadedCopy const copy;
    ASSERT_NE(copy.Handle(), nullptr);
    EXPECT_EQ(state->m_pClassList, classes);
    EXPECT_EQ(state->m_pFactoryList, factories);
    EXPECT_EQ(state->m_pClassInit, nullptr) << "what was put aside is back in its place";
}

TEST_F(Module, JoinsTheChainWhenItIsLoadedAndLeavesItWhenItIsUnloaded)
{
    std::vector<HMODULE> const before = ModulesInChain();
    LoadedCopy copy;
    ASSERT_NE(copy.Handle(), nullptr);
    std::vector<HMODULE> expected = before;
    expected.push_back(copy.Handle());
    EXPECT_EQ(ModulesInChain(), expected);
    copy.Unload();
    EXPECT_EQ(ModulesInChain(), before);
}

TEST_F(Module, DestroysTheSizeGripListWhenItIsUnloaded)
{
    support::SystemCounts const before = support::CountSystemObjects();
    {
        LoadedCopy const copy;
        ASSERT_NE(copy.Handle(), nullptr);
        EXPECT_GT(support::CountSystemObjects().gdiObjects, before.gdiObjects) << "the list has bitmaps of its own";
    }
    EXPECT_EQ(support::CountSystemObjects(), before);
}

TEST_F(Module, KeepsNothingOfAThreadThatComesAndGoes)
{
    std::vector<HMODULE> const before = ModulesInChain();
    std::jthread([] {}).join();
    EXPECT_EQ(ModulesInChain(), before);
}

// Calls of the library to GDI+, which are handed on.
struct GraphicsCalls
{
    std::vector<Gdiplus::GdiplusStartupInput> inputs;
    std::vector<Gdiplus::GdiplusStartupOutput*> outputs;
    std::vector<ULONG_PTR> started;
    std::vector<ULONG_PTR> stopped;
};
GraphicsCalls* g_calls = nullptr;

Gdiplus::GpStatus WINAPI RecordStartup(ULONG_PTR* token, Gdiplus::GdiplusStartupInput const* input,
                                       Gdiplus::GdiplusStartupOutput* output)
{
    Gdiplus::GpStatus const status = Gdiplus::GdiplusStartup(token, input, output);
    g_calls->inputs.push_back(*input);
    g_calls->outputs.push_back(output);
    g_calls->started.push_back(*token);
    return status;
}

void WINAPI RecordShutdown(ULONG_PTR token)
{
    g_calls->stopped.push_back(token);
    Gdiplus::GdiplusShutdown(token);
}

class Graphics : public support::WindowTest
{
protected:
    GraphicsCalls m_calls;

private:
    void SetUp() override
    {
        WindowTest::SetUp();
        g_calls = &m_calls;
    }
    void TearDown() override
    {
        g_calls = nullptr;
        WindowTest::TearDown();
    }

    ImportHook m_startup{"TavKit.dll", "gdiplus.dll", "GdiplusStartup", reinterpret_cast<void*>(RecordStartup)};
    ImportHook m_shutdown{"TavKit.dll", "gdiplus.dll", "GdiplusShutdown", reinterpret_cast<void*>(RecordShutdown)};
};

TEST_F(Graphics, StartWithThePlainInputAndNoOutputRecord)
{
    TavKitInit();
    TavKitShutdown();
    ASSERT_EQ(m_calls.inputs.size(), 1U);
    EXPECT_EQ(m_calls.inputs[0].GdiplusVersion, 1U);
    EXPECT_EQ(m_calls.inputs[0].DebugEventCallback, nullptr);
    EXPECT_FALSE(m_calls.inputs[0].SuppressBackgroundThread);
    EXPECT_FALSE(m_calls.inputs[0].SuppressExternalCodecs);
    EXPECT_EQ(m_calls.outputs[0], nullptr);
    EXPECT_EQ(m_calls.stopped, m_calls.started) << "the stop has the token of the start";
}

TEST_F(Graphics, StartTwiceWhenAskedTwice)
{
    TavKitInit();
    TavKitInit();
    EXPECT_EQ(m_calls.started.size(), 2U);
    TavKitShutdown();
    TavKitShutdown();
}

TEST_F(Graphics, StopTwiceWithTheSameTokenWhenAskedTwice)
{
    TavKitInit();
    TavKitShutdown();
    TavKitShutdown();
    EXPECT_EQ(m_calls.stopped, (std::vector<ULONG_PTR>{m_calls.started.at(0), m_calls.started.at(0)}));
}

} // namespace
