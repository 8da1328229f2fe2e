// TextBlock.h - draws a configured block of text
#pragma once

#include <afxwin.h>
#include "tavkit/frame/Export.h"
#include "tavkit/frame/services/CnfgLdr.h"

/// Draws a block's text, line breaks honoured, and a small registered sign behind each marker word in it. Colour, font
/// and background mode of `pDC` are the same afterwards. A null text draws nothing.
TAVKIT_API void DrawTextBlock(CDC* pDC, const CnfgLdr::TextBlock& block);
