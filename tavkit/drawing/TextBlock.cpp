#include "tavkit/drawing/TextBlock.h"

#include "tavkit/drawing/TextBlockMarks.h"

namespace
{

constexpr int kFarSide = 1000; // right and bottom of the drawing rectangle
constexpr int kEntireText = -1;

bool MakeFont(CFont& font, int height, int weight, char const* face)
{
    return font.CreateFont(height, 0, 0, 0, weight, FALSE, FALSE, FALSE, 0, 0, 0, 0, 0, face != nullptr ? face : "");
}

} // namespace

void DrawTextBlock(CDC* pDC, const CnfgLdr::TextBlock& block)
{
    if (pDC == nullptr)
    {
        return;
    }
    char const* const text = block.strText.c_str();
    tavkit::SignFont const sign = tavkit::SignFontOf(block.nHeight, block.nWeight);
    CFont mainFont;
    CFont signFont;
    if (!MakeFont(mainFont, block.nHeight, block.nWeight, block.pszFont) ||
        !MakeFont(signFont, sign.height, sign.weight, block.pszFont))
    {
        return;
    }
    int const oldMode = pDC->SetBkMode(TRANSPARENT);
    CFont* const oldFont = pDC->SelectObject(&mainFont);
    COLORREF const oldColor = pDC->SetTextColor(block.crColor);

    CRect rect(block.x, block.y, kFarSide, kFarSide);
    pDC->DrawText(text, kEntireText, &rect, 0);
    for (tavkit::TextMark const& mark : tavkit::FindTextMarks(text))
    {
        CSize const upToSign = pDC->GetTextExtent(text + mark.lineStart, static_cast<int>(mark.end - mark.lineStart));
        CSize const lastChar = pDC->GetTextExtent(text + mark.end - 1, 1);
        pDC->SelectObject(&signFont);
        CSize const size = pDC->GetTextExtent(&tavkit::kRegisteredSign, 1);
        pDC->TextOut(block.x + upToSign.cx - lastChar.cx / 4, block.y + upToSign.cy * mark.line - size.cy / 4,
                     &tavkit::kRegisteredSign, 1);
        pDC->SelectObject(&mainFont);
    }

    pDC->SetTextColor(oldColor);
    pDC->SelectObject(oldFont);
    pDC->SetBkMode(oldMode);
}
