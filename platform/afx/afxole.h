// afxole.h - data objects of the clipboard and of drag and drop
#pragma once

#include "afx.h"
#include <ole2.h>

/// Starts OLE on the calling thread (a single-threaded apartment) until the thread's end; for InitInstance.
/// A second call on the thread changes nothing. @return FALSE when the thread can't hold OLE.
TAVAFX_API BOOL AFXAPI AfxOleInit();
/// Ends what AfxOleInit started on this thread. Without a start: does nothing.
TAVAFX_API void AFXAPI AfxOleTerm();

/// Reader of a data object. Every question answers "no data" while none is attached.
class TAVAFX_API COleDataObject
{
public:
    COleDataObject() = default;
    ~COleDataObject();
    COleDataObject(const COleDataObject&) = delete;
    void operator=(const COleDataObject&) = delete;

    /// Attaches what lies on the clipboard. @return FALSE when OLE isn't started on this thread.
    BOOL AttachClipboard();
    /// @param bAutoRelease  TRUE: the reference is taken over; FALSE: the caller keeps it and must outlive this object
    void Attach(LPDATAOBJECT lpDataObject, BOOL bAutoRelease = TRUE);
    void Release();

    /// @param lpFormatEtc  null: content aspect, in global memory or any other medium
    BOOL IsDataAvailable(CLIPFORMAT cfFormat, LPFORMATETC lpFormatEtc = nullptr);
    /// @return a handle that the caller frees with GlobalFree; null when there is no such data.
    HGLOBAL GetGlobalData(CLIPFORMAT cfFormat, LPFORMATETC lpFormatEtc = nullptr);

    LPDATAOBJECT m_lpDataObject = nullptr;

private:
    BOOL m_bAutoRelease = FALSE;
};
