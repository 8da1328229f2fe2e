// OleData.cpp - start and end of OLE, reading of data objects
#include "afxole.h"
#include <cstring>

namespace
{
thread_local bool t_oleStarted = false;

// The clipboard itself doesn't always refuse a thread without OLE once another thread has started it.
bool ThreadHoldsOle()
{
    APTTYPE type = APTTYPE_CURRENT;
    APTTYPEQUALIFIER qualifier = APTTYPEQUALIFIER_NONE;
    return SUCCEEDED(::CoGetApartmentType(&type, &qualifier)) && (type == APTTYPE_STA || type == APTTYPE_MAINSTA);
}

// The question asked of a data object: the caller's, or the content in one piece.
FORMATETC Question(CLIPFORMAT cfFormat, const FORMATETC* lpFormatEtc, DWORD nMedia)
{
    if (lpFormatEtc == nullptr)
    {
        return {cfFormat, nullptr, DVASPECT_CONTENT, -1, nMedia};
    }
    FORMATETC question = *lpFormatEtc;
    if (cfFormat != 0)
    {
        question.cfFormat = cfFormat;
    }
    return question;
}

// A copy of a block of global memory, which the caller frees; null when memory is short.
HGLOBAL CopyOf(HGLOBAL hSource)
{
    const SIZE_T nBytes = ::GlobalSize(hSource);
    const HGLOBAL hCopy = ::GlobalAlloc(GMEM_MOVEABLE, nBytes);
    if (hCopy == nullptr)
    {
        return nullptr;
    }
    const void* pSource = ::GlobalLock(hSource);
    void* pCopy = ::GlobalLock(hCopy);
    if (pSource != nullptr && pCopy != nullptr)
    {
        std::memcpy(pCopy, pSource, nBytes);
    }
    ::GlobalUnlock(hCopy);
    ::GlobalUnlock(hSource);
    return hCopy;
}
} // namespace

BOOL AfxOleInit()
{
    if (!t_oleStarted)
    {
        const HRESULT result = ::OleInitialize(nullptr);
        t_oleStarted = SUCCEEDED(result); // S_FALSE, started before by others, is counted as well
    }
    return t_oleStarted;
}

void AfxOleTerm()
{
    if (t_oleStarted)
    {
        t_oleStarted = false;
        ::OleUninitialize();
    }
}

COleDataObject::~COleDataObject() { Release(); }

BOOL COleDataObject::AttachClipboard()
{
    LPDATAOBJECT lpDataObject = nullptr;
    if (!ThreadHoldsOle() || FAILED(::OleGetClipboard(&lpDataObject)) || lpDataObject == nullptr)
    {
        return FALSE;
    }
    Attach(lpDataObject, TRUE);
    return TRUE;
}

void COleDataObject::Attach(LPDATAOBJECT lpDataObject, BOOL bAutoRelease)
{
    Release();
    m_lpDataObject = lpDataObject;
    m_bAutoRelease = bAutoRelease;
}

void COleDataObject::Release()
{
    if (m_lpDataObject != nullptr && m_bAutoRelease)
    {
        m_lpDataObject->Release();
    }
    m_lpDataObject = nullptr;
    m_bAutoRelease = FALSE;
}

BOOL COleDataObject::IsDataAvailable(CLIPFORMAT cfFormat, LPFORMATETC lpFormatEtc)
{
    constexpr DWORD kAnyMedium = static_cast<DWORD>(-1);
    if (m_lpDataObject == nullptr)
    {
        return FALSE;
    }
    FORMATETC question = Question(cfFormat, lpFormatEtc, kAnyMedium);
    return m_lpDataObject->QueryGetData(&question) == S_OK;
}

HGLOBAL COleDataObject::GetGlobalData(CLIPFORMAT cfFormat, LPFORMATETC lpFormatEtc)
{
    if (m_lpDataObject == nullptr)
    {
        return nullptr;
    }
    FORMATETC question = Question(cfFormat, lpFormatEtc, TYMED_HGLOBAL);
    STGMEDIUM medium = {};
    if (FAILED(m_lpDataObject->GetData(&question, &medium)))
    {
        return nullptr;
    }
    if (medium.tymed == TYMED_HGLOBAL && medium.pUnkForRelease == nullptr)
    {
        return medium.hGlobal; // ours already
    }
    const HGLOBAL hCopy = medium.tymed == TYMED_HGLOBAL ? CopyOf(medium.hGlobal) : nullptr;
    ::ReleaseStgMedium(&medium);
    return hCopy;
}
