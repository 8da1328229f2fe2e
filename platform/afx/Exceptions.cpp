// Exceptions.cpp - texts of the exceptions and the functions that throw them
#include "afxapp.h"
#include <algorithm>
#include <climits>

namespace
{
constexpr LPCTSTR kNoText = "The operation failed; there is no further information.";
constexpr LPCTSTR kMemoryText = "There is not enough memory.";
constexpr LPCTSTR kResourceText = "A required resource is not available.";
constexpr LPCTSTR kNotSupportedText = "An unsupported operation was attempted.";
constexpr LPCTSTR kInvalidArgText = "An invalid argument was encountered.";

BOOL CopyText(LPCTSTR lpszText, LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext)
{
    if (pnHelpContext != nullptr)
    {
        *pnHelpContext = 0;
    }
    if (lpszError != nullptr && nMaxError > 0)
    {
        ::lstrcpynA(lpszError, lpszText, static_cast<int>(std::min<UINT>(nMaxError, INT_MAX)));
    }
    return lpszText[0] != '\0';
}

CMemoryException g_memoryException(FALSE);
CResourceException g_resourceException(FALSE);
CNotSupportedException g_notSupportedException(FALSE);
CUserException g_userException(FALSE);
CInvalidArgException g_invalidArgException(FALSE);
} // namespace

IMPLEMENT_DYNAMIC(CException, CObject)
IMPLEMENT_DYNAMIC(CMemoryException, CException)
IMPLEMENT_DYNAMIC(CResourceException, CException)
IMPLEMENT_DYNAMIC(CNotSupportedException, CException)
IMPLEMENT_DYNAMIC(CUserException, CException)
IMPLEMENT_DYNAMIC(CInvalidArgException, CException)

CException::CException() : CException(TRUE) {}
CException::CException(BOOL bAutoDelete) : m_bAutoDelete(bAutoDelete) {}

void CException::Delete()
{
    if (m_bAutoDelete)
    {
        delete this;
    }
}

BOOL CException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext)
{
    return CopyText("", lpszError, nMaxError, pnHelpContext);
}

int CException::ReportError(UINT nType, UINT nError)
{
    constexpr UINT kMaxText = 512;
    char text[kMaxText];
    CString message;
    if (GetErrorMessage(text, kMaxText))
    {
        message = text;
    }
    else if (nError == 0 || !message.LoadString(nError))
    {
        message = kNoText;
    }
    return AfxMessageBox(message, nType);
}

CMemoryException::CMemoryException() = default;
CMemoryException::CMemoryException(BOOL bAutoDelete) : CException(bAutoDelete) {}
BOOL CMemoryException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext)
{
    return CopyText(kMemoryText, lpszError, nMaxError, pnHelpContext);
}

CResourceException::CResourceException() = default;
CResourceException::CResourceException(BOOL bAutoDelete) : CException(bAutoDelete) {}
BOOL CResourceException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext)
{
    return CopyText(kResourceText, lpszError, nMaxError, pnHelpContext);
}

CNotSupportedException::CNotSupportedException() = default;
CNotSupportedException::CNotSupportedException(BOOL bAutoDelete) : CException(bAutoDelete) {}
BOOL CNotSupportedException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext)
{
    return CopyText(kNotSupportedText, lpszError, nMaxError, pnHelpContext);
}

CUserException::CUserException() = default;
CUserException::CUserException(BOOL bAutoDelete) : CException(bAutoDelete) {}

CInvalidArgException::CInvalidArgException() = default;
CInvalidArgException::CInvalidArgException(BOOL bAutoDelete) : CException(bAutoDelete) {}
BOOL CInvalidArgException::GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext)
{
    return CopyText(kInvalidArgText, lpszError, nMaxError, pnHelpContext);
}

// The pointers are thrown as the exact class, so that a handler for it or for any of its bases catches them.
void AfxThrowMemoryException() { throw &g_memoryException; }
void AfxThrowResourceException() { throw &g_resourceException; }
void AfxThrowNotSupportedException() { throw &g_notSupportedException; }
void AfxThrowUserException() { throw &g_userException; }
void AfxThrowInvalidArgException() { throw &g_invalidArgException; }
