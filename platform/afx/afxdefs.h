// afxdefs.h - what every header of the framework stands on: the platform, the export mark
#pragma once

#ifndef NOMINMAX
#    define NOMINMAX
#endif
#include <windows.h>
#include <commctrl.h>

#ifdef TAVAFX_EXPORTS
#    define TAVAFX_API __declspec(dllexport)
#else
#    define TAVAFX_API __declspec(dllimport)
#endif
