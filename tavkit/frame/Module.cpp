// The module's entry point, and the start and stop of its graphics.
#include "tavkit/frame/Module.h"
#include "tavkit/frame/ModuleHandle.h"

#include <afxwin.h>
#include <afxdll_.h>
#include <objidl.h>
#include <gdiplus.h>

// Ahead of every constructor of this module: the host's classes are put aside, so that ours register with this module.
AFX_EXTENSION_MODULE_BEGIN()

namespace
{

AFX_EXTENSION_MODULE g_extensionModule{};
HINSTANCE g_instance = nullptr;
ULONG_PTR g_graphicsToken = 0;

} // namespace

HINSTANCE tavkit::ModuleInstance() noexcept { return g_instance; }

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID)
{
    switch (reason)
    {
    case DLL_PROCESS_ATTACH:
        g_instance = instance;
        if (!AfxInitExtensionModule(g_extensionModule, instance))
        {
            return FALSE;
        }
        new CDynLinkLibrary(g_extensionModule); // joins the chain of resources; the framework owns it
        break;
    case DLL_PROCESS_DETACH:
        AfxTermExtensionModule(g_extensionModule);
        break;
    default:
        break;
    }
    return TRUE;
}

void TavKitInit()
{
    const Gdiplus::GdiplusStartupInput input; // version 1, no callback, background thread and codecs as usual
    Gdiplus::GdiplusStartup(&g_graphicsToken, &input, nullptr);
}

void TavKitShutdown() { Gdiplus::GdiplusShutdown(g_graphicsToken); }
