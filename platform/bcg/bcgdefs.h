// bcgdefs.h - the export mark of the docking toolkit
#pragma once

#ifdef TAVBCG_EXPORTS
#    define TAVBCG_API __declspec(dllexport)
#else
#    define TAVBCG_API __declspec(dllimport)
#endif
