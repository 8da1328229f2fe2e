// GdiObject.cpp - owning, finding and deleting GDI handles
#include "afxgdi.h"

#include "afxcount.h"
#include "impl/GdiMaps.h"
#include <optional>

IMPLEMENT_DYNAMIC(CGdiObject, CObject)

namespace
{
// A handle that somebody else deleted has no kind any more: it stays counted, which is how the mistake shows.
std::optional<AfxResource> KindOf(HGDIOBJ hObject)
{
    switch (::GetObjectType(hObject))
    {
    case OBJ_PEN:
    case OBJ_EXTPEN:
        return AfxResource::Pen;
    case OBJ_BRUSH:
        return AfxResource::Brush;
    case OBJ_FONT:
        return AfxResource::Font;
    case OBJ_BITMAP:
        return AfxResource::Bitmap;
    case OBJ_REGION:
        return AfxResource::Region;
    case OBJ_PAL:
        return AfxResource::Palette;
    default:
        return std::nullopt;
    }
}

std::unique_ptr<CGdiObject> MakeObjectFor(HGDIOBJ hObject)
{
    switch (::GetObjectType(hObject))
    {
    case OBJ_PEN:
    case OBJ_EXTPEN:
        return std::make_unique<CPen>();
    case OBJ_BRUSH:
        return std::make_unique<CBrush>();
    case OBJ_FONT:
        return std::make_unique<CFont>();
    case OBJ_BITMAP:
        return std::make_unique<CBitmap>();
    case OBJ_REGION:
        return std::make_unique<CRgn>();
    default:
        return std::make_unique<CGdiObject>();
    }
}
} // namespace

CGdiObject::~CGdiObject() { DeleteObject(); }

HGDIOBJ CGdiObject::GetSafeHandle() const { return this == nullptr ? nullptr : m_hObject; }

CGdiObject* PASCAL CGdiObject::FromHandle(HGDIOBJ hObject)
{
    CGdiObject* object = AfxGdiObjectMap().FromHandle(hObject, [hObject] { return MakeObjectFor(hObject); });
    if (object != nullptr)
    {
        object->m_hObject = hObject; // a temporary one may have been detached since it was made
    }
    return object;
}

BOOL CGdiObject::Attach(HGDIOBJ hObject)
{
    if (hObject == nullptr)
    {
        return FALSE;
    }
    if (hObject != m_hObject)
    {
        DeleteObject();
        m_hObject = hObject;
    }
    if (AfxEnterOwner(AfxGdiObjectMap(), hObject, this))
    {
        if (const auto kind = KindOf(hObject))
        {
            AfxCountCreated(*kind);
        }
    }
    return TRUE;
}

HGDIOBJ CGdiObject::Detach()
{
    const HGDIOBJ hObject = m_hObject;
    m_hObject = nullptr;
    if (hObject != nullptr && AfxLeaveOwner(AfxGdiObjectMap(), hObject, this))
    {
        if (const auto kind = KindOf(hObject))
        {
            AfxCountReleased(*kind);
        }
    }
    return hObject;
}

BOOL CGdiObject::DeleteObject()
{
    const HGDIOBJ hObject = Detach();
    return hObject != nullptr && ::DeleteObject(hObject);
}

int CGdiObject::GetObject(int nCount, LPVOID lpObject) const
{
    return m_hObject == nullptr ? 0 : ::GetObject(m_hObject, nCount, lpObject);
}

BOOL CGdiObject::CreateStockObject(int nIndex) { return Attach(::GetStockObject(nIndex)); }
