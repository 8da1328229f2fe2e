// StringEdit.cpp - the string's formatting, replacing, case folding and loading
#include "afx.h"
#include "afxstat.h"
#include "impl/StringResource.h"
#include <algorithm>
#include <array>
#include <climits>
#include <string>
#include <string_view>

namespace
{
constexpr int kCharCount = 256;
constexpr size_t kShortFormat = 256; // texts of this size are formatted in one pass, without touching the heap

std::string_view ViewOf(const CString& string) noexcept
{
    return {string.GetString(), static_cast<size_t>(string.GetLength())};
}

CString StringOf(const std::string& text)
{
    if (text.size() > static_cast<size_t>(INT_MAX))
    {
        AfxThrowMemoryException();
    }
    return {text.data(), static_cast<int>(text.size())};
}

// Lower-case form of each byte of the ANSI code page; made once.
const std::array<BYTE, kCharCount>& LowerCaseTable()
{
    static const auto table = [] {
        std::array<BYTE, kCharCount> chars{};
        for (int ch = 0; ch < kCharCount; ch++)
        {
            chars[static_cast<size_t>(ch)] = static_cast<BYTE>(ch);
        }
        ::CharLowerBuffA(reinterpret_cast<LPSTR>(chars.data()), kCharCount);
        return chars;
    }();
    return table;
}
} // namespace

int CString::CompareNoCase(LPCTSTR lpsz) const noexcept
{
    const auto& lower = LowerCaseTable();
    const auto* p1 = reinterpret_cast<const BYTE*>(m_pszData);
    const auto* p2 = reinterpret_cast<const BYTE*>(lpsz == nullptr ? "" : lpsz);
    while (*p1 != 0 && lower[*p1] == lower[*p2])
    {
        p1++, p2++;
    }
    return lower[*p1] - lower[*p2];
}

void CString::Format(LPCTSTR lpszFormat, ...)
{
    va_list argList;
    va_start(argList, lpszFormat);
    FormatV(lpszFormat, argList);
    va_end(argList);
}

void CString::FormatV(LPCTSTR lpszFormat, va_list argList)
{
    if (lpszFormat == nullptr)
    {
        Empty();
        return;
    }
    va_list secondPass;
    va_copy(secondPass, argList);
    char brief[kShortFormat];
    const int nLength = std::vsnprintf(brief, sizeof brief, lpszFormat, argList);
    if (nLength >= 0 && static_cast<size_t>(nLength) < sizeof brief)
    {
        Assign(brief, nLength);
    }
    else if (nLength > 0)
    {
        CString result; // the arguments may lie in this text
        std::vsnprintf(result.GetBufferSetLength(nLength), static_cast<size_t>(nLength) + 1, lpszFormat, secondPass);
        *this = std::move(result);
    }
    va_end(secondPass);
}

void CString::AppendFormat(LPCTSTR lpszFormat, ...)
{
    CString addition;
    va_list argList;
    va_start(argList, lpszFormat);
    addition.FormatV(lpszFormat, argList);
    va_end(argList);
    *this += addition;
}

int CString::Replace(LPCTSTR lpszOld, LPCTSTR lpszNew)
{
    const std::string_view wanted = lpszOld == nullptr ? "" : lpszOld;
    const std::string_view replacement = lpszNew == nullptr ? "" : lpszNew;
    const std::string_view text = ViewOf(*this);
    size_t nFound = wanted.empty() ? std::string_view::npos : text.find(wanted);
    if (nFound == std::string_view::npos)
    {
        return 0;
    }
    std::string result;
    int nReplaced = 0;
    size_t nFrom = 0;
    for (; nFound != std::string_view::npos; nFound = text.find(wanted, nFrom))
    {
        result.append(text, nFrom, nFound - nFrom).append(replacement);
        nFrom = nFound + wanted.size();
        nReplaced++;
    }
    result.append(text, nFrom);
    *this = StringOf(result);
    return nReplaced;
}

int CString::Replace(TCHAR chOld, TCHAR chNew)
{
    const std::string_view text = ViewOf(*this);
    const auto nCount = static_cast<int>(std::count(text.begin(), text.end(), chOld));
    if (nCount > 0 && chOld != chNew)
    {
        MakeWritable(GetLength());
        std::replace(m_pszData, m_pszData + GetLength(), chOld, chNew);
    }
    return chOld == chNew ? 0 : nCount;
}

int CString::Insert(int nIndex, LPCTSTR lpsz)
{
    const CString addition(lpsz);
    if (!addition.IsEmpty())
    {
        nIndex = std::clamp(nIndex, 0, GetLength());
        *this = Left(nIndex) + addition + Mid(nIndex);
    }
    return GetLength();
}

int CString::Insert(int nIndex, TCHAR ch)
{
    nIndex = std::clamp(nIndex, 0, GetLength());
    *this = Left(nIndex) + ch + Mid(nIndex);
    return GetLength();
}

int CString::Delete(int nIndex, int nCount)
{
    const int nLength = GetLength();
    nIndex = std::clamp(nIndex, 0, nLength);
    nCount = std::clamp(nCount, 0, nLength - nIndex);
    if (nCount == nLength)
    {
        Empty();
    }
    else if (nCount > 0)
    {
        MakeWritable(nLength);
        std::memmove(m_pszData + nIndex, m_pszData + nIndex + nCount, static_cast<size_t>(nLength - nIndex - nCount));
        SetLength(nLength - nCount);
    }
    return GetLength();
}

int CString::Remove(TCHAR ch)
{
    const std::string_view text = ViewOf(*this);
    const auto nCount = static_cast<int>(std::count(text.begin(), text.end(), ch));
    if (nCount > 0)
    {
        MakeWritable(GetLength());
        std::remove(m_pszData, m_pszData + GetLength(), ch);
        SetLength(GetLength() - nCount);
    }
    return nCount;
}

CString& CString::MakeUpper()
{
    if (!IsEmpty())
    {
        MakeWritable(GetLength());
        ::CharUpperBuffA(m_pszData, static_cast<DWORD>(GetLength()));
    }
    return *this;
}

CString& CString::MakeLower()
{
    if (!IsEmpty())
    {
        MakeWritable(GetLength());
        ::CharLowerBuffA(m_pszData, static_cast<DWORD>(GetLength()));
    }
    return *this;
}

BOOL CString::LoadString(UINT nID)
{
    std::wstring_view text;
    if (!AfxFindStringResource(nID, text))
    {
        return FALSE;
    }
    const int nWide = static_cast<int>(text.size());
    const int nLength = ::WideCharToMultiByte(CP_ACP, 0, text.data(), nWide, nullptr, 0, nullptr, nullptr);
    CString result;
    ::WideCharToMultiByte(CP_ACP, 0, text.data(), nWide, result.GetBufferSetLength(nLength), nLength, nullptr, nullptr);
    *this = std::move(result);
    return TRUE;
}
