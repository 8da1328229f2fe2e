// Export.h - marks what TavKit.dll exports
#pragma once

#if !defined(_WIN32) || defined(TAVKIT_LOGIC_STATIC)
#    define TAVKIT_API // pure logic, compiled into a test program
#elif defined(TAVKIT_EXPORTS)
#    define TAVKIT_API __declspec(dllexport)
#else
#    define TAVKIT_API __declspec(dllimport)
#endif
