// String.cpp - the string's buffers, assignment, searching and parts
#include "afx.h"
#include "impl/StringBuffer.h"
#include <algorithm>
#include <climits>
#include <cstdlib>
#include <functional>
#include <new>
#include <string_view>
#include <utility>

namespace
{
// Every empty string shows this text; it isn't counted, so that making and dropping empty strings costs nothing.
struct EmptyText
{
    AFX_STRING_BUFFER head{AFX_STRING_BUFFER::kNotCounted, 0, 0};
    char text[1] = {'\0'};
};
constinit EmptyText g_empty;

AFX_STRING_BUFFER* EmptyBuffer() noexcept { return &g_empty.head; }

int LengthOf(LPCTSTR lpsz) noexcept
{
    if (lpsz == nullptr)
    {
        return 0;
    }
    const size_t nLength = std::strlen(lpsz);
    return nLength > INT_MAX ? INT_MAX : static_cast<int>(nLength);
}

LPCTSTR TextOf(LPCTSTR lpsz) noexcept { return lpsz == nullptr ? "" : lpsz; }

std::string_view ViewOf(const CString& string) noexcept
{
    return {string.GetString(), static_cast<size_t>(string.GetLength())};
}

int PositionOf(size_t nFound) noexcept { return nFound == std::string_view::npos ? -1 : static_cast<int>(nFound); }

constexpr LPCTSTR kWhiteSpace = " \t\n\v\f\r";
} // namespace

AFX_STRING_BUFFER* AFX_STRING_BUFFER::Allocate(int nCapacity)
{
    if (nCapacity > INT_MAX - static_cast<int>(sizeof(AFX_STRING_BUFFER)) - 1)
    {
        AfxThrowMemoryException();
    }
    void* pMemory = std::malloc(sizeof(AFX_STRING_BUFFER) + static_cast<size_t>(nCapacity) + 1);
    if (pMemory == nullptr)
    {
        AfxThrowMemoryException();
    }
    auto* pBuffer = new (pMemory) AFX_STRING_BUFFER{1, 0, nCapacity};
    pBuffer->Text()[0] = '\0';
    return pBuffer;
}

AFX_STRING_BUFFER* AFX_STRING_BUFFER::Make(LPCTSTR lpch, int nLength, int nCapacity)
{
    if (nCapacity == 0)
    {
        return EmptyBuffer();
    }
    AFX_STRING_BUFFER* pBuffer = Allocate(nCapacity);
    std::memcpy(pBuffer->Text(), lpch, static_cast<size_t>(nLength));
    pBuffer->SetLength(nLength);
    return pBuffer;
}

CString::CString() noexcept : CString(EmptyBuffer()) {}
CString::CString(AFX_STRING_BUFFER* pBuffer) noexcept : m_pszData(pBuffer->Text()) {}
CString::CString(const CString& stringSrc) noexcept : CString(stringSrc.Buffer()) { Buffer()->AddRef(); }
CString::CString(CString&& stringSrc) noexcept : m_pszData(std::exchange(stringSrc.m_pszData, EmptyBuffer()->Text())) {}
CString::CString(LPCTSTR lpsz) : CString(lpsz, LengthOf(lpsz)) {}

CString::CString(TCHAR ch, int nRepeat) : CString()
{
    if (nRepeat > 0)
    {
        std::memset(GetBufferSetLength(nRepeat), ch, static_cast<size_t>(nRepeat));
    }
}

CString::CString(LPCTSTR lpch, int nLength) : CString()
{
    if (lpch != nullptr && nLength > 0)
    {
        m_pszData = AFX_STRING_BUFFER::Make(lpch, nLength, nLength)->Text();
    }
}

CString::~CString() { Buffer()->Release(); }

CString& CString::operator=(const CString& stringSrc) noexcept
{
    AFX_STRING_BUFFER* pBuffer = stringSrc.Buffer();
    pBuffer->AddRef();
    Adopt(pBuffer);
    return *this;
}

CString& CString::operator=(CString&& stringSrc) noexcept
{
    std::swap(m_pszData, stringSrc.m_pszData);
    return *this;
}

CString& CString::operator=(LPCTSTR lpsz)
{
    Assign(TextOf(lpsz), LengthOf(lpsz));
    return *this;
}

CString& CString::operator=(TCHAR ch)
{
    Assign(&ch, 1);
    return *this;
}

int CString::GetLength() const noexcept { return Buffer()->nLength; }
void CString::Empty() noexcept { Adopt(EmptyBuffer()); }

TCHAR CString::GetAt(int nIndex) const
{
    if (nIndex < 0 || nIndex > GetLength())
    {
        AfxThrowInvalidArgException();
    }
    return m_pszData[nIndex];
}

void CString::SetAt(int nIndex, TCHAR ch)
{
    if (nIndex < 0 || nIndex >= GetLength())
    {
        AfxThrowInvalidArgException();
    }
    MakeWritable(GetLength());
    m_pszData[nIndex] = ch;
}

CString& CString::operator+=(const CString& string)
{
    if (IsEmpty())
    {
        return *this = string; // shares the buffer
    }
    Append(string, string.GetLength());
    return *this;
}

CString& CString::operator+=(LPCTSTR lpsz)
{
    Append(lpsz, LengthOf(lpsz));
    return *this;
}

CString& CString::operator+=(TCHAR ch)
{
    Append(&ch, 1);
    return *this;
}

void CString::Append(LPCTSTR lpch, int nLength)
{
    if (lpch == nullptr || nLength <= 0)
    {
        return;
    }
    const int nOldLength = GetLength();
    if (nLength > INT_MAX - nOldLength)
    {
        AfxThrowMemoryException();
    }
    const int nNewLength = nOldLength + nLength;
    const CString source = Holds(lpch) ? *this : CString(); // keeps the source's buffer alive and as it is
    if (nNewLength > Buffer()->nCapacity || Buffer()->IsShared())
    {
        // half as much again, so that a loop of appends costs linear time
        MakeWritable(std::max(nNewLength, nOldLength > INT_MAX / 2 ? nNewLength : nOldLength + nOldLength / 2));
    }
    std::memcpy(m_pszData + nOldLength, lpch, static_cast<size_t>(nLength));
    SetLength(nNewLength);
}

int CString::Compare(LPCTSTR lpsz) const noexcept { return std::strcmp(m_pszData, TextOf(lpsz)); }

int CString::Find(TCHAR ch, int nStart) const noexcept
{
    return nStart < 0 ? -1 : PositionOf(ViewOf(*this).find(ch, static_cast<size_t>(nStart)));
}

int CString::Find(LPCTSTR lpszSub, int nStart) const noexcept
{
    return nStart < 0 ? -1 : PositionOf(ViewOf(*this).find(TextOf(lpszSub), static_cast<size_t>(nStart)));
}

int CString::ReverseFind(TCHAR ch) const noexcept { return PositionOf(ViewOf(*this).rfind(ch)); }

int CString::FindOneOf(LPCTSTR lpszCharSet) const noexcept
{
    return PositionOf(ViewOf(*this).find_first_of(TextOf(lpszCharSet)));
}

CString CString::Mid(int nFirst) const { return Mid(nFirst, GetLength()); }

CString CString::Mid(int nFirst, int nCount) const
{
    nFirst = std::clamp(nFirst, 0, GetLength());
    nCount = std::clamp(nCount, 0, GetLength() - nFirst);
    return nCount == GetLength() ? *this : CString(m_pszData + nFirst, nCount);
}

CString CString::Left(int nCount) const { return Mid(0, nCount); }

CString CString::Right(int nCount) const
{
    nCount = std::clamp(nCount, 0, GetLength());
    return Mid(GetLength() - nCount, nCount);
}

CString CString::SpanIncluding(LPCTSTR lpszCharSet) const
{
    const size_t nEnd = ViewOf(*this).find_first_not_of(TextOf(lpszCharSet));
    return nEnd == std::string_view::npos ? *this : Left(static_cast<int>(nEnd));
}

CString CString::SpanExcluding(LPCTSTR lpszCharSet) const
{
    const int nEnd = FindOneOf(lpszCharSet);
    return nEnd < 0 ? *this : Left(nEnd);
}

CString CString::Tokenize(LPCTSTR lpszTokens, int& nStart) const
{
    const std::string_view text = ViewOf(*this);
    const size_t nFirst =
        nStart < 0 ? std::string_view::npos : text.find_first_not_of(TextOf(lpszTokens), static_cast<size_t>(nStart));
    if (nFirst == std::string_view::npos)
    {
        nStart = -1;
        return {};
    }
    const size_t nEnd = std::min(text.find_first_of(TextOf(lpszTokens), nFirst), text.size());
    nStart = static_cast<int>(std::min(nEnd + 1, text.size()));
    return Mid(static_cast<int>(nFirst), static_cast<int>(nEnd - nFirst));
}

CString& CString::Trim() { return TrimRight().TrimLeft(); }
CString& CString::TrimLeft() { return TrimLeft(kWhiteSpace); }
CString& CString::TrimRight() { return TrimRight(kWhiteSpace); }

CString& CString::TrimLeft(TCHAR ch)
{
    const TCHAR set[] = {ch, '\0'};
    return TrimLeft(set);
}

CString& CString::TrimRight(TCHAR ch)
{
    const TCHAR set[] = {ch, '\0'};
    return TrimRight(set);
}

CString& CString::TrimLeft(LPCTSTR lpszCharSet)
{
    const size_t nFirst = ViewOf(*this).find_first_not_of(TextOf(lpszCharSet));
    Delete(0, nFirst == std::string_view::npos ? GetLength() : static_cast<int>(nFirst));
    return *this;
}

CString& CString::TrimRight(LPCTSTR lpszCharSet)
{
    const int nKeep = PositionOf(ViewOf(*this).find_last_not_of(TextOf(lpszCharSet))) + 1;
    Delete(nKeep, GetLength() - nKeep);
    return *this;
}

LPTSTR CString::GetBuffer(int nMinBufLength)
{
    // A buffer of the string's own even for 0 bytes: the shared empty text must not be written.
    MakeWritable(std::max({nMinBufLength, GetLength(), 1}));
    return m_pszData;
}

LPTSTR CString::GetBufferSetLength(int nNewLength)
{
    nNewLength = std::max(nNewLength, 0);
    GetBuffer(nNewLength);
    SetLength(nNewLength);
    return m_pszData;
}

void CString::ReleaseBuffer(int nNewLength)
{
    const auto nCapacity = static_cast<size_t>(Buffer()->nCapacity);
    nNewLength = nNewLength < 0 ? static_cast<int>(strnlen(m_pszData, nCapacity))
                                : static_cast<int>(std::min(static_cast<size_t>(nNewLength), nCapacity));
    if (nNewLength == 0)
    {
        Empty();
    }
    else
    {
        MakeWritable(nNewLength);
        SetLength(nNewLength);
    }
}

AFX_STRING_BUFFER* CString::Buffer() const noexcept { return reinterpret_cast<AFX_STRING_BUFFER*>(m_pszData) - 1; }

bool CString::Holds(LPCTSTR lpch) const noexcept
{
    return std::less_equal<>{}(static_cast<LPCTSTR>(m_pszData), lpch) &&
           std::less_equal<>{}(lpch, static_cast<LPCTSTR>(m_pszData) + Buffer()->nCapacity);
}

void CString::Assign(LPCTSTR lpch, int nLength)
{
    if (nLength == 0)
    {
        Empty();
    }
    else if (nLength <= Buffer()->nCapacity && !Buffer()->IsShared())
    {
        std::memmove(m_pszData, lpch, static_cast<size_t>(nLength)); // the source may be a part of this text
        SetLength(nLength);
    }
    else
    {
        Adopt(AFX_STRING_BUFFER::Make(lpch, nLength, nLength));
    }
}

void CString::Adopt(AFX_STRING_BUFFER* pBuffer) noexcept
{
    Buffer()->Release();
    m_pszData = pBuffer->Text();
}

void CString::MakeWritable(int nCapacity)
{
    if (Buffer()->IsShared() || Buffer()->nCapacity < nCapacity)
    {
        Adopt(AFX_STRING_BUFFER::Make(m_pszData, GetLength(), std::max(nCapacity, GetLength())));
    }
}

void CString::SetLength(int nLength) noexcept { Buffer()->SetLength(nLength); }

namespace
{
CString Joined(LPCTSTR lpch1, int nLength1, LPCTSTR lpch2, int nLength2)
{
    CString result;
    if (nLength1 > INT_MAX - nLength2)
    {
        AfxThrowMemoryException();
    }
    if (nLength1 + nLength2 > 0)
    {
        LPTSTR lpch = result.GetBufferSetLength(nLength1 + nLength2);
        std::memcpy(lpch, TextOf(lpch1), static_cast<size_t>(nLength1));
        std::memcpy(lpch + nLength1, TextOf(lpch2), static_cast<size_t>(nLength2));
    }
    return result;
}
} // namespace

CString operator+(const CString& string1, const CString& string2)
{
    return Joined(string1, string1.GetLength(), string2, string2.GetLength());
}

CString operator+(const CString& string, LPCTSTR lpsz)
{
    return Joined(string, string.GetLength(), lpsz, LengthOf(lpsz));
}

CString operator+(LPCTSTR lpsz, const CString& string)
{
    return Joined(lpsz, LengthOf(lpsz), string, string.GetLength());
}

CString operator+(const CString& string, TCHAR ch) { return Joined(string, string.GetLength(), &ch, 1); }
CString operator+(TCHAR ch, const CString& string) { return Joined(&ch, 1, string, string.GetLength()); }
