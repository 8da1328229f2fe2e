// Entry.cpp - entry point of a test module
#include <afxdll_.h>

AFX_EXTENSION_MODULE_BEGIN()

namespace
{
AFX_EXTENSION_MODULE g_module = {};
}

extern "C" BOOL WINAPI DllMain(HINSTANCE hInstance, DWORD dwReason, LPVOID)
{
#ifdef EXT_MODULE_C
    hInstance = nullptr; // the initialisation fails, and with it the load
#endif
    if (dwReason == DLL_PROCESS_ATTACH)
    {
        if (!AfxInitExtensionModule(g_module, hInstance))
        {
            return FALSE;
        }
        new CDynLinkLibrary(g_module);
    }
    else if (dwReason == DLL_PROCESS_DETACH)
    {
        AfxTermExtensionModule(g_module);
    }
    return TRUE;
}
