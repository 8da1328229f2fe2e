// afxstr.h - the framework's string: one pointer wide, never null, buffers shared until one of the sharers writes
#pragma once

#include "afxdefs.h"
#include <cstdarg>

class CString;
struct AFX_STRING_BUFFER;

/// A class, of another library say, that turns itself into a CString.
template <class T>
concept AfxStringSource = requires(const T& source)
{
    source.operator CString();
};

/// Text of single bytes in the ANSI code page. Positions and lengths count bytes; positions start at 0.
/// Null texts read as "". Out of memory throws CMemoryException and leaves the string as it was.
class TAVAFX_API CString
{
public:
    CString() noexcept;
    CString(const CString& stringSrc) noexcept;
    CString(CString&& stringSrc) noexcept;
    CString(LPCTSTR lpsz);
    /// @param nRepeat  how many times; 0 or less gives ""
    CString(TCHAR ch, int nRepeat = 1);
    /// @param nLength  bytes to take, also behind a zero byte; 0 or less gives ""
    CString(LPCTSTR lpch, int nLength);
    // A class that turns itself into a CString and into a plain text leaves no choice open: the CString is taken.
    template <AfxStringSource T>
    CString(const T& source) : CString(source.operator CString())
    {
    }
    ~CString();

    CString& operator=(const CString& stringSrc) noexcept;
    CString& operator=(CString&& stringSrc) noexcept;
    /// The source may be a part of this string.
    CString& operator=(LPCTSTR lpsz);
    CString& operator=(TCHAR ch);
    template <AfxStringSource T>
    CString& operator=(const T& source)
    {
        return *this = source.operator CString();
    }

    operator LPCTSTR() const noexcept { return m_pszData; }
    LPCTSTR GetString() const noexcept { return m_pszData; }
    int GetLength() const noexcept;
    BOOL IsEmpty() const noexcept { return GetLength() == 0; }
    void Empty() noexcept;

    /// @param nIndex  0 to the length (which reads as the terminator); anything else throws CInvalidArgException
    TCHAR GetAt(int nIndex) const;
    TCHAR operator[](int nIndex) const { return GetAt(nIndex); }
    /// @param nIndex  0 to the length less one; anything else throws CInvalidArgException
    void SetAt(int nIndex, TCHAR ch);

    CString& operator+=(const CString& string);
    CString& operator+=(LPCTSTR lpsz);
    CString& operator+=(TCHAR ch);
    template <AfxStringSource T>
    CString& operator+=(const T& source)
    {
        return *this += source.operator CString();
    }
    /// Appends nLength bytes; the source may be a part of this string.
    void Append(LPCTSTR lpch, int nLength);
    void Append(LPCTSTR lpsz) { *this += lpsz; }

    /// Byte order, as strcmp: less than, equal to or greater than 0.
    int Compare(LPCTSTR lpsz) const noexcept;
    /// As Compare, with the letters of the ANSI code page folded to lower case.
    int CompareNoCase(LPCTSTR lpsz) const noexcept;

    // All searches answer -1 for "not found", also for a start outside the text.
    int Find(TCHAR ch, int nStart = 0) const noexcept;
    /// An empty text is found at the start itself.
    int Find(LPCTSTR lpszSub, int nStart = 0) const noexcept;
    int ReverseFind(TCHAR ch) const noexcept;
    /// First position of any character of the set.
    int FindOneOf(LPCTSTR lpszCharSet) const noexcept;

    // Positions and counts outside the text are moved to its ends.
    CString Mid(int nFirst) const;
    CString Mid(int nFirst, int nCount) const;
    CString Left(int nCount) const;
    CString Right(int nCount) const;
    /// The leading run of characters that are in the set.
    CString SpanIncluding(LPCTSTR lpszCharSet) const;
    /// The leading run of characters that aren't in the set.
    CString SpanExcluding(LPCTSTR lpszCharSet) const;
    /// Next part between characters of the set; empty parts are skipped.
    /// @param nStart  where to go on; set to -1, with an empty result, when there are no more parts
    CString Tokenize(LPCTSTR lpszTokens, int& nStart) const;

    /// Replaces the text by a formatted one of any length; arguments may point into this string.
    [[gnu::format(gnu_printf, 2, 3)]] void Format(LPCTSTR lpszFormat, ...);
    void FormatV(LPCTSTR lpszFormat, va_list argList);
    [[gnu::format(gnu_printf, 2, 3)]] void AppendFormat(LPCTSTR lpszFormat, ...);

    /// Replaces every occurrence from left to right; replacements aren't searched again.
    /// @return how many were replaced; 0 for an empty lpszOld.
    int Replace(LPCTSTR lpszOld, LPCTSTR lpszNew);
    int Replace(TCHAR chOld, TCHAR chNew);
    /// @param nIndex  moved to the ends of the text when outside
    /// @return the new length.
    int Insert(int nIndex, LPCTSTR lpsz);
    int Insert(int nIndex, TCHAR ch);
    /// @return the new length.
    int Delete(int nIndex, int nCount = 1);
    /// Removes every occurrence. @return how many there were.
    int Remove(TCHAR ch);

    // Without an argument: white space (blank, tab, line feed, vertical tab, form feed, carriage return).
    CString& Trim();
    CString& TrimLeft();
    CString& TrimRight();
    CString& TrimLeft(TCHAR ch);
    CString& TrimRight(TCHAR ch);
    CString& TrimLeft(LPCTSTR lpszCharSet);
    CString& TrimRight(LPCTSTR lpszCharSet);

    // Letters of the ANSI code page.
    CString& MakeUpper();
    CString& MakeLower();

    /// Opens the text for writing: a buffer of this string's own with room for at least nMinBufLength bytes and the
    /// terminator. The text stays. Valid until the next call of a member that isn't const; end with ReleaseBuffer.
    LPTSTR GetBuffer(int nMinBufLength = 0);
    /// As GetBuffer, and sets the length; bytes behind the old text are undefined.
    LPTSTR GetBufferSetLength(int nNewLength);
    /// @param nNewLength  the length written, at most the room asked for; -1: up to the first zero byte
    void ReleaseBuffer(int nNewLength = -1);

    /// Loads a string resource: the application's, else that of the first extension module that has it.
    /// @return FALSE, and the text as it was, when none has it.
    BOOL LoadString(UINT nID);

private:
    explicit CString(AFX_STRING_BUFFER* pBuffer) noexcept;
    AFX_STRING_BUFFER* Buffer() const noexcept;
    bool Holds(LPCTSTR lpch) const noexcept;
    void Assign(LPCTSTR lpch, int nLength);
    void Adopt(AFX_STRING_BUFFER* pBuffer) noexcept;
    void MakeWritable(int nCapacity);
    void SetLength(int nLength) noexcept;

    LPTSTR m_pszData; // text of a counted buffer, whose head lies in front of it
};

TAVAFX_API CString operator+(const CString& string1, const CString& string2);
TAVAFX_API CString operator+(const CString& string, LPCTSTR lpsz);
TAVAFX_API CString operator+(LPCTSTR lpsz, const CString& string);
TAVAFX_API CString operator+(const CString& string, TCHAR ch);
TAVAFX_API CString operator+(TCHAR ch, const CString& string);

inline bool operator==(const CString& s1, const CString& s2) noexcept { return s1.Compare(s2) == 0; }
inline bool operator==(const CString& s1, LPCTSTR s2) noexcept { return s1.Compare(s2) == 0; }
inline bool operator==(LPCTSTR s1, const CString& s2) noexcept { return s2.Compare(s1) == 0; }
inline bool operator!=(const CString& s1, const CString& s2) noexcept { return s1.Compare(s2) != 0; }
inline bool operator!=(const CString& s1, LPCTSTR s2) noexcept { return s1.Compare(s2) != 0; }
inline bool operator!=(LPCTSTR s1, const CString& s2) noexcept { return s2.Compare(s1) != 0; }
inline bool operator<(const CString& s1, const CString& s2) noexcept { return s1.Compare(s2) < 0; }
inline bool operator<(const CString& s1, LPCTSTR s2) noexcept { return s1.Compare(s2) < 0; }
inline bool operator<(LPCTSTR s1, const CString& s2) noexcept { return s2.Compare(s1) > 0; }
inline bool operator>(const CString& s1, const CString& s2) noexcept { return s1.Compare(s2) > 0; }
inline bool operator>(const CString& s1, LPCTSTR s2) noexcept { return s1.Compare(s2) > 0; }
inline bool operator>(LPCTSTR s1, const CString& s2) noexcept { return s2.Compare(s1) < 0; }
inline bool operator<=(const CString& s1, const CString& s2) noexcept { return s1.Compare(s2) <= 0; }
inline bool operator<=(const CString& s1, LPCTSTR s2) noexcept { return s1.Compare(s2) <= 0; }
inline bool operator<=(LPCTSTR s1, const CString& s2) noexcept { return s2.Compare(s1) >= 0; }
inline bool operator>=(const CString& s1, const CString& s2) noexcept { return s1.Compare(s2) >= 0; }
inline bool operator>=(const CString& s1, LPCTSTR s2) noexcept { return s1.Compare(s2) >= 0; }
inline bool operator>=(LPCTSTR s1, const CString& s2) noexcept { return s2.Compare(s1) <= 0; }
