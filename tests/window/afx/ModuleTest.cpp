// ModuleTest.cpp - extension modules, the resource chain, module state
#include "../extmodule/ExtModule.h"

#include <afxdll_.h>
#include <afxwin.h>
#include <gmock/gmock.h>

#include <memory>
#include <thread>

namespace
{
// A module that is loaded to the end of the block.
class LoadedModule
{
public:
    explicit LoadedModule(const char* name) : m_handle(AfxLoadLibrary(name)) {}
    ~LoadedModule() { AfxFreeLibrary(m_handle); }
    LoadedModule(const LoadedModule&) = delete;
    void operator=(const LoadedModule&) = delete;
    operator HINSTANCE() const { return m_handle; }

private:
    HINSTANCE m_handle;
};

CString TextOf(UINT id)
{
    CString text("none");
    text.LoadString(id);
    return text;
}

HINSTANCE ModuleOf(int id) { return AfxFindResourceHandle(MAKEINTRESOURCE(id), RT_RCDATA); }

class CHostThing : public CObject
{
    DECLARE_DYNCREATE(CHostThing)
};
IMPLEMENT_DYNCREATE(CHostThing, CObject)
} // namespace

TEST(ExtensionModule, ResourcesAreFoundWhileItIsLoadedAndNotAfterwards)
{
    EXPECT_EQ(TextOf(IDS_ONLY_A), "none");
    {
        const LoadedModule a("ExtModuleA.dll");
        ASSERT_NE(static_cast<HINSTANCE>(a), nullptr);
        EXPECT_EQ(TextOf(IDS_ONLY_A), "only a");
        EXPECT_EQ(ModuleOf(IDR_ONLY_A), static_cast<HINSTANCE>(a));
    }
    EXPECT_EQ(TextOf(IDS_ONLY_A), "none");
    EXPECT_EQ(ModuleOf(IDR_ONLY_A), AfxGetResourceHandle());
}

TEST(ExtensionModule, TheApplicationWinsOverEveryModule)
{
    const LoadedModule a("ExtModuleA.dll");
    EXPECT_EQ(TextOf(IDS_HOST_TOO), "text of the host");
    EXPECT_EQ(ModuleOf(IDR_HOST_TOO), AfxGetResourceHandle());
}

TEST(ExtensionModule, TheOneRegisteredFirstWins)
{
    {
        const LoadedModule a("ExtModuleA.dll");
        const LoadedModule b("ExtModuleB.dll");
        EXPECT_EQ(TextOf(IDS_A_AND_B), "text of a");
        EXPECT_EQ(ModuleOf(IDR_A_AND_B), static_cast<HINSTANCE>(a));
    }
    const LoadedModule b("ExtModuleB.dll");
    const LoadedModule a("ExtModuleA.dll");
    EXPECT_EQ(TextOf(IDS_A_AND_B), "text of b");
    EXPECT_EQ(ModuleOf(IDR_A_AND_B), static_cast<HINSTANCE>(b));
}

TEST(ExtensionModule, ASystemLibraryComesBehindTheOthersEvenWhenItWasRegisteredFirst)
{
    const HINSTANCE data = ::LoadLibraryExA("ExtModuleB.dll", nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_NE(data, nullptr);
    AFX_EXTENSION_MODULE state = {};
    ASSERT_TRUE(AfxInitExtensionModule(state, data));
    new CDynLinkLibrary(state, TRUE);
    {
        const LoadedModule a("ExtModuleA.dll");
        EXPECT_EQ(ModuleOf(IDR_A_AND_B), static_cast<HINSTANCE>(a));
        EXPECT_EQ(ModuleOf(IDR_ONLY_B), data);
    }
    EXPECT_EQ(ModuleOf(IDR_A_AND_B), data);
    AfxTermExtensionModule(state);
    EXPECT_EQ(ModuleOf(IDR_A_AND_B), AfxGetResourceHandle());
    ::FreeLibrary(data);
}

TEST(ExtensionModule, AModuleWhoseBlockOfStringsLacksTheOneIsPassedOver)
{
    const LoadedModule a("ExtModuleA.dll");
    const LoadedModule b("ExtModuleB.dll");
    EXPECT_EQ(TextOf(IDS_ONLY_B), "only b"); // a has a block with this number, but not this string
    EXPECT_EQ(AfxFindStringResourceHandle(IDS_ONLY_B), static_cast<HINSTANCE>(b));
    EXPECT_EQ(AfxFindStringResourceHandle(IDS_NOWHERE), nullptr);
}

TEST(ExtensionModule, ALibraryWithResourcesOnlyJoinsTheChain)
{
    const HINSTANCE data = ::LoadLibraryExA("ExtModuleA.dll", nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_NE(data, nullptr);
    auto library = std::make_unique<CDynLinkLibrary>(data, data);
    EXPECT_EQ(ModuleOf(IDR_ONLY_A), data);
    library.reset();
    EXPECT_EQ(ModuleOf(IDR_ONLY_A), AfxGetResourceHandle());
    ::FreeLibrary(data);
}

TEST(ExtensionModule, ItsClassesRegisterWithItAndNotWithTheApplication)
{
    const CRuntimeClass* const applicationsHead = AfxGetModuleState()->m_pClassList;
    EXPECT_EQ(CRuntimeClass::FromName("CExtThingA"), nullptr);
    {
        const LoadedModule a("ExtModuleA.dll");
        EXPECT_EQ(AfxGetModuleState()->m_pClassList, applicationsHead);
        EXPECT_EQ(AfxGetModuleState()->m_pClassInit, nullptr);
        EXPECT_NE(CRuntimeClass::FromName("CHostThing"), nullptr);
        const std::unique_ptr<CObject> thing(CRuntimeClass::CreateObject("CExtThingA"));
        ASSERT_NE(thing, nullptr);
        EXPECT_STREQ(thing->GetRuntimeClass()->m_lpszClassName, "CExtThingA");
    }
    EXPECT_EQ(CRuntimeClass::FromName("CExtThingA"), nullptr);
    EXPECT_NE(CRuntimeClass::FromName("CHostThing"), nullptr);
}

TEST(ExtensionModule, AFailedInitialisationFailsTheLoadAndPutsTheApplicationsClassesBack)
{
    const CRuntimeClass* const applicationsHead = AfxGetModuleState()->m_pClassList;
    EXPECT_EQ(AfxLoadLibrary("ExtModuleC.dll"), nullptr);
    EXPECT_EQ(AfxGetModuleState()->m_pClassList, applicationsHead);
    EXPECT_EQ(CRuntimeClass::FromName("CExtThingC"), nullptr);
    EXPECT_NE(CRuntimeClass::FromName("CHostThing"), nullptr);
}

TEST(ExtensionModule, ASecondInitialisationChangesNothing)
{
    AFX_EXTENSION_MODULE state = {};
    const HMODULE module = ::GetModuleHandleA(nullptr);
    ASSERT_TRUE(AfxInitExtensionModule(state, module));
    EXPECT_TRUE(AfxInitExtensionModule(state, nullptr));
    EXPECT_EQ(state.hModule, module);
    EXPECT_EQ(state.hResource, module);
}

TEST(ExtensionModule, WithoutAModuleTheInitialisationFails)
{
    AFX_EXTENSION_MODULE state = {};
    EXPECT_FALSE(AfxInitExtensionModule(state, nullptr));
    EXPECT_FALSE(state.bInitialized);
}

TEST(ExtensionModule, AnInitialisationWithoutABeginLeavesTheApplicationsClassesAlone)
{
    const CRuntimeClass* const applicationsHead = AfxGetModuleState()->m_pClassList;
    AFX_EXTENSION_MODULE state = {};
    ASSERT_TRUE(AfxInitExtensionModule(state, ::GetModuleHandleA(nullptr)));
    EXPECT_EQ(state.pFirstSharedClass, nullptr);
    EXPECT_EQ(AfxGetModuleState()->m_pClassList, applicationsHead);
}

TEST(ExtensionModule, TheFactoryListIsPutAsideAndComesBack)
{
    AFX_MODULE_STATE* const app = AfxGetModuleState();
    int applicationsFactory = 0;
    int modulesFactory = 0;
    void* const before = std::exchange(app->m_pFactoryList, &applicationsFactory);
    AfxBeginExtensionModule();
    EXPECT_EQ(app->m_pFactoryList, nullptr);
    EXPECT_EQ(app->m_pFactoryInit, &applicationsFactory);
    EXPECT_EQ(app->m_pClassList, nullptr);
    app->m_pFactoryList = &modulesFactory;
    AFX_EXTENSION_MODULE state = {};
    ASSERT_TRUE(AfxInitExtensionModule(state, ::GetModuleHandleA(nullptr)));
    EXPECT_EQ(state.pFirstSharedFactory, &modulesFactory);
    EXPECT_EQ(app->m_pFactoryList, &applicationsFactory);
    app->m_pFactoryList = before;
}

TEST(ExtensionModule, TerminationOfOneLeavesTheOthersInTheChain)
{
    const LoadedModule b("ExtModuleB.dll");
    {
        const LoadedModule a("ExtModuleA.dll");
    }
    EXPECT_EQ(TextOf(IDS_A_AND_B), "text of b");
}

TEST(ResourceHandle, TheOneThatWasSetIsAskedFirst)
{
    const HINSTANCE data = ::LoadLibraryExA("ExtModuleA.dll", nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_NE(data, nullptr);
    const HINSTANCE before = AfxGetResourceHandle();
    AfxSetResourceHandle(data);
    EXPECT_EQ(AfxGetResourceHandle(), data);
    EXPECT_EQ(TextOf(IDS_HOST_TOO), "text of a");
    AfxSetResourceHandle(before);
    EXPECT_EQ(TextOf(IDS_HOST_TOO), "text of the host");
    ::FreeLibrary(data);
}

TEST(ResourceHandle, WithoutOneTheProgramsOwnServes)
{
    AFX_MODULE_STATE empty;
    AFX_MANAGE_STATE(&empty);
    EXPECT_EQ(AfxGetInstanceHandle(), ::GetModuleHandleA(nullptr));
    EXPECT_EQ(AfxGetResourceHandle(), ::GetModuleHandleA(nullptr));
}

TEST(LoadStringFromChain, CutsATextThatIsTooLongAndTerminatesIt)
{
    const LoadedModule a("ExtModuleA.dll");
    char text[5] = {'x', 'x', 'x', 'x', 'x'};
    EXPECT_EQ(AfxLoadString(IDS_ONLY_A, text, sizeof text), 4);
    EXPECT_STREQ(text, "only");
}

TEST(LoadStringFromChain, AnswersZeroAndAnEmptyTextForAnUnknownNumber)
{
    char text[] = "old";
    EXPECT_EQ(AfxLoadString(IDS_NOWHERE, text, sizeof text), 0);
    EXPECT_STREQ(text, "");
    EXPECT_EQ(AfxLoadString(IDS_NOWHERE, nullptr, 0), 0);
}

TEST(LoadStringFromChain, AStringKeepsItsTextWhenTheNumberIsUnknown)
{
    CString text("old");
    EXPECT_FALSE(text.LoadString(IDS_NOWHERE));
    EXPECT_EQ(text, "old");
}

TEST(LoadStringFromChain, TextsComeInTheAnsiCodePage)
{
    const LoadedModule a("ExtModuleA.dll");
    EXPECT_EQ(TextOf(IDS_NOT_ASCII), "5 \xB5m");
}

TEST(ModuleState, AScopeRestoresTheStateThatWasInForce)
{
    AFX_MODULE_STATE* const before = AfxGetModuleState();
    EXPECT_EQ(before, AfxGetStaticModuleState());
    AFX_MODULE_STATE other;
    {
        AFX_MANAGE_STATE(&other);
        EXPECT_EQ(AfxGetModuleState(), &other);
        std::thread([&] {
            EXPECT_EQ(AfxGetModuleState(), before) << "the scope holds for its own thread alone";
        }).join();
        {
            AFX_MANAGE_STATE(AfxGetStaticModuleState());
            EXPECT_EQ(AfxGetModuleState(), before);
        }
        EXPECT_EQ(AfxGetModuleState(), &other);
    }
    EXPECT_EQ(AfxGetModuleState(), before);
}

TEST(ModuleState, AskingForItLeavesTheLastErrorAlone)
{
    std::thread([] {
        constexpr DWORD kSomeError = 1234;
        ::SetLastError(kSomeError);
        AfxGetModuleState(); // makes the thread's state
        EXPECT_EQ(::GetLastError(), kSomeError);
        AfxGetModuleState();
        EXPECT_EQ(::GetLastError(), kSomeError);
    }).join();
}

TEST(LoadLibrary, NullAndUnknownNamesAnswerNull)
{
    EXPECT_EQ(AfxLoadLibrary(nullptr), nullptr);
    EXPECT_EQ(AfxLoadLibrary("no such library.dll"), nullptr);
    EXPECT_FALSE(AfxFreeLibrary(nullptr));
}
