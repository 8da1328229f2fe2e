// StringResource.h - string resources as they lie in the module
#pragma once

#include "afxdefs.h"
#include <string_view>

/// Finds a string in the chain of resources. @return the module; null, and text as it was, when none has it.
HINSTANCE AfxFindStringResource(UINT nID, std::wstring_view& text) noexcept;
