// HostApi.h - marks what the host's services module exports; the library is compiled against these declarations
#pragma once

#if !defined(_WIN32) || defined(TAVKIT_LOGIC_STATIC)
#    define TAVHOST_API // pure logic, compiled into a test program
#elif defined(TAVHOST_EXPORTS)
#    define TAVHOST_API __declspec(dllexport)
#else
#    define TAVHOST_API __declspec(dllimport)
#endif

// Lets the compiler check the arguments behind a format text against it; the dialect is the platform's own run-time's.
#ifdef _WIN32
#    define TAVHOST_PRINTF(text, args) [[gnu::format(ms_printf, text, args)]]
#else
#    define TAVHOST_PRINTF(text, args) [[gnu::format(printf, text, args)]]
#endif
