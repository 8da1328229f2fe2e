#include "tavkit/drawing/TavImageList.h"

#include <algorithm>

namespace
{

constexpr COLORREF kBand = RGB(255, 255, 255);
constexpr COLORREF kBar = RGB(255, 0, 0);
constexpr int kBandInset = 2; // of the white band's ends, in pixels
constexpr int kBarInset = 4;  // of the red line's ends
constexpr CRect kSmallCircle(3, 3, 14, 13);
constexpr CRect kReplacedRect(2, 2, 14, 14);
constexpr unsigned int kIconIdMask = 0xFFFF;

bool HasImageList(int bitsPerPixel)
{
    return bitsPerPixel == 8 || bitsPerPixel == 16 || bitsPerPixel == 24 || bitsPerPixel == 32;
}

void DrawBar(CDC& dc, CRect const& rect)
{
    // The middle ignores rect.top: callers rely on the glyph as it is.
    int const middle = (rect.bottom - rect.top) / 2;
    dc.FillSolidRect(CRect(rect.left + kBandInset, middle - 1, rect.right - kBandInset, middle + 2), kBand);
    CPen const pen(PS_SOLID, 1, kBar);
    SelectScope const selected(dc, pen);
    dc.MoveTo(rect.left + kBarInset, middle);
    dc.LineTo(rect.right - kBarInset, middle);
}

} // namespace

CTavImageList::CTavImageList() = default;

CTavImageList::~CTavImageList() { Clear(); }

void CTavImageList::SetWindow(CWnd* window) { m_pWindow = window; }

void CTavImageList::Create()
{
    Clear();
    DeleteImageList();
    int const bitsPerPixel = CClientDC(m_pWindow).GetDeviceCaps(BITSPIXEL);
    if (!HasImageList(bitsPerPixel))
    {
        return;
    }
    // The flag of a colour depth is the depth itself; there is no mask.
    CImageList::Create(kImageSize, kImageSize, static_cast<UINT>(bitsPerPixel), kFirstRoom, kGrowth);
    CBitmap bitmap;
    Paint(bitmap, Shape::None, {}, CRect());
    SetBkColor(::GetSysColor(COLOR_WINDOW));
    m_nDefaultImage = Add(&bitmap, static_cast<CBitmap*>(nullptr));
}

int CTavImageList::GetDefaultImage() const { return m_nDefaultImage; }

int CTavImageList::GetCircle(COLORREF color, COLORREF border, CRect rect, bool barred)
{
    return GetGlyph(m_circles, Shape::Circle, {color, border, barred}, rect);
}

int CTavImageList::GetCircleSmall(COLORREF color, COLORREF border)
{
    return GetCircle(color, border, kSmallCircle, false);
}

int CTavImageList::GetRect(COLORREF color, COLORREF border, CRect rect)
{
    return GetGlyph(m_rects, Shape::Rect, {color, border, false}, rect);
}

bool CTavImageList::ReplaceRect(int image, COLORREF color, COLORREF border)
{
    tavkit::GlyphKey const key{color, border, false};
    CBitmap bitmap;
    Paint(bitmap, Shape::Rect, key, kReplacedRect);
    bool const replaced = Replace(image, &bitmap, nullptr) != FALSE;
    m_rects.Rename(image, key); // also when the list refused, on purpose
    return replaced;
}

int CTavImageList::GetGlyph(tavkit::GlyphCache& cache, Shape shape, tavkit::GlyphKey const& key, CRect const& rect)
{
    if (auto const known = cache.Find(key))
    {
        return *known;
    }
    CBitmap bitmap;
    Paint(bitmap, shape, key, rect);
    int const image = Add(&bitmap, static_cast<CBitmap*>(nullptr));
    if (image >= 0)
    {
        cache.Add(key, image);
    }
    return image;
}

void CTavImageList::Paint(CBitmap& bitmap, Shape shape, tavkit::GlyphKey const& key, CRect const& rect) const
{
    CClientDC window(m_pWindow);
    CDC dc;
    if (!dc.CreateCompatibleDC(&window) || !bitmap.CreateCompatibleBitmap(&window, kImageSize, kImageSize))
    {
        return;
    }
    SelectScope const canvas(dc, bitmap);
    dc.FillSolidRect(0, 0, kImageSize, kImageSize, ::GetSysColor(COLOR_WINDOW));
    if (shape == Shape::None)
    {
        return;
    }
    CPen const pen(PS_SOLID, 1, key.border);
    CBrush const brush(key.fill);
    SelectScope const border(dc, pen);
    SelectScope const fill(dc, brush);
    if (shape == Shape::Rect)
    {
        dc.Rectangle(rect);
        return;
    }
    dc.Ellipse(rect);
    if (key.barred)
    {
        DrawBar(dc, rect);
    }
}

CTavImageList::Icon CTavImageList::LoadFrom(HINSTANCE module, unsigned int iconId)
{
    return Icon(static_cast<HICON>(::LoadImage(module, MAKEINTRESOURCE(iconId & kIconIdMask), IMAGE_ICON, kImageSize,
                                               kImageSize, LR_DEFAULTCOLOR)));
}

int CTavImageList::GetIcon(unsigned int iconId, char const* file)
{
    DString const module(file);
    auto const known = std::ranges::find_if(
        m_icons, [&](IconEntry const& entry) { return entry.id == iconId && entry.file == module; });
    if (known != m_icons.end())
    {
        return known->image;
    }
    if (module.GetLength() == 0)
    {
        // A missing icon is remembered like any other, with the index that the list gives for none.
        Icon const icon =
            LoadFrom(::AfxFindResourceHandle(MAKEINTRESOURCE(iconId & kIconIdMask), RT_GROUP_ICON), iconId);
        int const image = Add(icon.get());
        m_icons.push_front({iconId, image, {}, nullptr});
        return image;
    }
    // The file is opened for its resources alone: none of its code runs, and it may be of another architecture.
    HINSTANCE const library = ::LoadLibraryEx(file, nullptr, LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE);
    if (library == nullptr)
    {
        return -1;
    }
    Icon icon = LoadFrom(library, iconId);
    ::FreeLibrary(library);
    if (icon == nullptr)
    {
        return -1;
    }
    int const image = Add(icon.get());
    m_icons.push_front({iconId, image, module, std::move(icon)});
    return image;
}

void CTavImageList::Clear()
{
    if (m_hImageList != nullptr)
    {
        for (int image = GetImageCount() - 1; image >= 0; --image)
        {
            Remove(image);
        }
    }
    m_icons.clear();
    m_circles.Clear();
    m_rects.Clear();
}
