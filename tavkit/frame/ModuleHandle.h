// ModuleHandle.h - the library's own instance handle, for its own sources and their tests
#pragma once

#include "tavkit/frame/Export.h"
#include "tavkit/frame/WinTypes.h"

namespace tavkit
{

/// The instance handle of TavKit.dll, stored when the module is loaded. For the few resources that must not come
/// through the resource chain, where a host's resource of the same number would win.
[[nodiscard]] TAVKIT_API HINSTANCE ModuleInstance() noexcept;

} // namespace tavkit
