// Module.h - start and stop of the library's graphics
#pragma once

#include "tavkit/frame/Export.h"

/// Starts GDI+ for the library. The host calls it once, before anything draws an image. Nothing is reported: after a
/// failed start images stay empty. Calls aren't counted: a second call starts GDI+ a second time and keeps only the
/// second token.
TAVKIT_API void TavKitInit();

/// Stops GDI+ with the token of the last TavKitInit. The host calls it once, when it stops. Nothing guards it: a second
/// call stops GDI+ a second time with the same token.
TAVKIT_API void TavKitShutdown();
