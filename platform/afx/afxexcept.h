// afxexcept.h - the framework's exceptions: thrown by pointer, caught as CException*, given back with Delete()
#pragma once

#include "afx.h"

/// Base of what the framework throws. The catcher ends the object's life with Delete(), never with delete.
class TAVAFX_API CException : public CObject
{
    DECLARE_DYNAMIC(CException)
public:
    /// An object from the heap, which Delete() deletes.
    CException();
    /// @param bAutoDelete  FALSE for a static object, which Delete() leaves alone.
    explicit CException(BOOL bAutoDelete);

    void Delete();

    /// Copies the text of the error; a text that is too long is cut.
    /// @param lpszError        receives the text, always terminated; may be null
    /// @param nMaxError        size of the buffer in characters, terminator included
    /// @param pnHelpContext    receives 0; may be null
    /// @return FALSE, and an empty text, when the exception has none.
    virtual BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr);

    /// Shows the text in a message box.
    /// @param nType   style of the box (MB_OK ...)
    /// @param nError  string resource shown when the exception has no text; 0: a general sentence
    /// @return the button that closed the box.
    virtual int ReportError(UINT nType = MB_OK, UINT nError = 0);

private:
    BOOL m_bAutoDelete;
};

/// Out of memory.
class TAVAFX_API CMemoryException : public CException
{
    DECLARE_DYNAMIC(CMemoryException)
public:
    CMemoryException();
    explicit CMemoryException(BOOL bAutoDelete);
    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) override;
};

/// A resource wasn't found or couldn't be created.
class TAVAFX_API CResourceException : public CException
{
    DECLARE_DYNAMIC(CResourceException)
public:
    CResourceException();
    explicit CResourceException(BOOL bAutoDelete);
    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) override;
};

/// A request that isn't supported.
class TAVAFX_API CNotSupportedException : public CException
{
    DECLARE_DYNAMIC(CNotSupportedException)
public:
    CNotSupportedException();
    explicit CNotSupportedException(BOOL bAutoDelete);
    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) override;
};

/// An operation ended after the user had already been told; its message says no more.
class TAVAFX_API CUserException : public CException
{
    DECLARE_DYNAMIC(CUserException)
public:
    CUserException();
    explicit CUserException(BOOL bAutoDelete);
};

/// An argument that the operation can't work with.
class TAVAFX_API CInvalidArgException : public CException
{
    DECLARE_DYNAMIC(CInvalidArgException)
public:
    CInvalidArgException();
    explicit CInvalidArgException(BOOL bAutoDelete);
    BOOL GetErrorMessage(LPTSTR lpszError, UINT nMaxError, UINT* pnHelpContext = nullptr) override;
};

// Each throws a static object: throwing must not need memory.
[[noreturn]] TAVAFX_API void AFXAPI AfxThrowMemoryException();
[[noreturn]] TAVAFX_API void AFXAPI AfxThrowResourceException();
[[noreturn]] TAVAFX_API void AFXAPI AfxThrowNotSupportedException();
[[noreturn]] TAVAFX_API void AFXAPI AfxThrowUserException();
[[noreturn]] TAVAFX_API void AFXAPI AfxThrowInvalidArgException();
