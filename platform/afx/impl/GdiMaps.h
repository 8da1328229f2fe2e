// GdiMaps.h - the thread's maps of GDI objects, device contexts and image lists, and who owns a handle in them
#pragma once

#include "afxdc.h"
#include "afximgl.h"
#include "impl/HandleMap.h"

template <>
struct AfxHandleTraits<CGdiObject, HGDIOBJ>
{
    static std::unique_ptr<CGdiObject> MakeTemporary() { return std::make_unique<CGdiObject>(); }
    static void SetHandle(CGdiObject& object, HGDIOBJ handle) { object.m_hObject = handle; }
};

template <>
struct AfxHandleTraits<CDC, HDC>
{
    static std::unique_ptr<CDC> MakeTemporary() { return std::make_unique<CDC>(); }
    static void SetHandle(CDC& object, HDC handle) { object.m_hDC = object.m_hAttribDC = handle; }
};

template <>
struct AfxHandleTraits<CImageList, HIMAGELIST>
{
    static std::unique_ptr<CImageList> MakeTemporary() { return std::make_unique<CImageList>(); }
    static void SetHandle(CImageList& object, HIMAGELIST handle) { object.m_hImageList = handle; }
};

inline CHandleMap<CGdiObject, HGDIOBJ>& AfxGdiObjectMap()
{
    return AfxGetHandleMap<CGdiObject, HGDIOBJ>(AfxMapKind::GdiObject);
}
inline CHandleMap<CDC, HDC>& AfxDCMap() { return AfxGetHandleMap<CDC, HDC>(AfxMapKind::DeviceContext); }
inline CHandleMap<CImageList, HIMAGELIST>& AfxImageListMap()
{
    return AfxGetHandleMap<CImageList, HIMAGELIST>(AfxMapKind::ImageList);
}

/// Enters the owner of a handle. Stock and system colour handles may be held by several objects: the first is entered.
/// @return whether the object was entered, so that exactly one of them is counted
template <class TObject, class THandle>
bool AfxEnterOwner(CHandleMap<TObject, THandle>& map, THandle handle, TObject* object)
{
    if (map.LookupPermanent(handle) != nullptr)
    {
        return false;
    }
    map.SetPermanent(handle, object);
    return true;
}

/// Takes an owner out again. @return whether it was this object that was entered
template <class TObject, class THandle>
bool AfxLeaveOwner(CHandleMap<TObject, THandle>& map, THandle handle, const TObject* object)
{
    if (map.LookupPermanent(handle) != object)
    {
        return false;
    }
    map.RemoveHandle(handle);
    return true;
}
