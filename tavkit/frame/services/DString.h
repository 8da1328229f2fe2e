// DString.h - the host's string value: one pointer to text, null until it first holds any
#pragma once

#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <new>

#include "tavkit/frame/services/HostApi.h"

#ifdef _WIN32
#    include <afx.h>
#endif

/// Text of bytes, one pointer wide. The pointer is null for a string that has never held text; every reader takes that
/// as "". In front of the text the allocation carries a 32-bit word with its own size in bytes. A copy is deep: nothing
/// is shared or counted. An allocation that can't be made throws std::bad_alloc and leaves the string as it was.
class DString
{
public:
    class Tokens;

    static constexpr std::size_t kSizeWord = sizeof(std::uint32_t); ///< bytes in front of the text
    static constexpr std::size_t kOverhead = kSizeWord + 1;         ///< the size word and the closing NUL
    static constexpr std::size_t kFirstBlock = 32;                  ///< smallest allocation in bytes; then 64, 128, ...

    DString() noexcept = default;
    /// @param text  copied; null gives an empty string with a null pointer.
    DString(char const* text) { *this = text; }
    DString(DString const& other) { *this = other.m_pText; }
    DString(DString&& other) noexcept : m_pText(other.m_pText) { other.m_pText = nullptr; }
    ~DString() { Free(m_pText); }

    DString& operator=(DString const& other)
    {
        if (this != &other)
        {
            *this = other.m_pText;
        }
        return *this;
    }
    DString& operator=(DString&& other) noexcept
    {
        if (other.IsEmpty())
        {
            AssignBytes(nullptr, 0); // nothing to take: the allocation stays, as for any empty source
        }
        else
        {
            char* const text = other.m_pText;
            other.m_pText = m_pText;
            m_pText = text;
        }
        return *this;
    }
    /// Takes a copy of @p text, which may lie in this string; null or "" empties the text and keeps the allocation.
    DString& operator=(char const* text)
    {
        AssignBytes(text, text ? std::strlen(text) : 0);
        return *this;
    }

    /// Makes room for @p n characters. Does nothing when the allocation is large enough or @p n is negative.
    /// @param keep  true: a new block gets the old text; false: it starts empty.
    void Reserve(int n, bool keep)
    {
        if (n >= 0)
        {
            ReserveBytes(static_cast<std::size_t>(n), keep);
        }
    }

    /// Takes @p count characters of @p src from position @p start; @p count is cut to what stands there.
    /// A null @p src or a @p count of 0 empties the text and keeps the allocation. A @p start at or past the end of
    /// @p src leaves the text as it was, deliberately; so do negative numbers.
    void Assign(char const* src, int start, int count)
    {
        if (!src || count == 0)
        {
            AssignBytes(nullptr, 0);
            return;
        }
        const std::size_t length = std::strlen(src);
        if (start < 0 || count < 0 || static_cast<std::size_t>(start) >= length)
        {
            return;
        }
        const std::size_t rest = length - static_cast<std::size_t>(start);
        const auto wanted = static_cast<std::size_t>(count);
        AssignBytes(src + start, wanted < rest ? wanted : rest);
    }

    /// Number of characters, 0 for a null pointer.
    [[nodiscard]] int GetLength() const noexcept { return static_cast<int>(Length()); }
    [[nodiscard]] bool IsEmpty() const noexcept { return !m_pText || !*m_pText; }
    /// Bytes of the allocation, its size word included; 0 for a null pointer.
    [[nodiscard]] unsigned int GetAllocSize() const noexcept
    {
        std::uint32_t size = 0;
        if (m_pText)
        {
            std::memcpy(&size, m_pText - kSizeWord, kSizeWord);
        }
        return size;
    }
    /// The text, never null; valid until the string changes.
    [[nodiscard]] char const* c_str() const noexcept { return m_pText ? m_pText : ""; }
    operator char const*() const noexcept { return c_str(); } ///< as c_str()
#ifdef _WIN32
    operator CString() const { return CString(c_str()); } ///< a copy of the text
#endif

    // Exact comparison of bytes; null equals "".
    bool operator==(char const* text) const noexcept { return std::strcmp(c_str(), text ? text : "") == 0; }
    bool operator==(DString const& other) const noexcept { return *this == other.c_str(); }
#ifdef _WIN32
    bool operator==(CString const& other) const { return *this == static_cast<LPCTSTR>(other); }
#endif

    /// Appends @p text, which may lie in this string; null and "" change nothing.
    DString& operator+=(char const* text)
    {
        AppendBytes(text, text ? std::strlen(text) : 0);
        return *this;
    }
    DString& operator+=(DString const& other) { return *this += other.m_pText; }

    friend DString operator+(DString const& left, DString const& right) { return Join(left.c_str(), right.c_str()); }
    friend DString operator+(DString const& left, char const* right) { return Join(left.c_str(), right); }
    friend DString operator+(char const* left, DString const& right) { return Join(left, right.c_str()); }

    /// Text printed by @p format and the arguments behind it, as sprintf prints; "" for a null or unusable format.
    TAVHOST_PRINTF(1, 2) static DString Format(char const* format, ...)
    {
        va_list args;
        va_start(args, format);
        DString text;
        try
        {
            text = FormatV(format, args);
        }
        catch (...)
        {
            va_end(args);
            throw;
        }
        va_end(args);
        return text;
    }
    /// As Format, for an argument list that the caller has started; the list is used up.
    TAVHOST_PRINTF(1, 0) static DString FormatV(char const* format, va_list args)
    {
        DString text;
        if (!format)
        {
            return text;
        }
        va_list measured;
        va_copy(measured, args);
#ifdef _WIN32
        const int length = _vscprintf(format, measured);
#else
        const int length = std::vsnprintf(nullptr, 0, format, measured);
#endif
        va_end(measured);
        if (length > 0)
        {
            text.Reserve(length, false);
#ifdef _WIN32
            // The run-time that measured must print: the compiler's own printf has other lengths for exponents.
            _vsnprintf(text.m_pText, static_cast<std::size_t>(length) + 1, format, args);
#else
            std::vsnprintf(text.m_pText, static_cast<std::size_t>(length) + 1, format, args);
#endif
            text.m_pText[length] = '\0';
        }
        return text;
    }

    /// Removes trailing characters that are in @p set; a null or empty set removes nothing.
    void TrimRight(char const* set)
    {
        if (!m_pText || !set)
        {
            return;
        }
        std::size_t length = Length();
        while (length > 0 && std::strchr(set, m_pText[length - 1]))
        {
            --length;
        }
        m_pText[length] = '\0';
    }

    /// Replaces every occurrence of @p from by @p to, from left to right; what was put in isn't searched again.
    /// @return how many were replaced; 0 for a null argument or an empty @p from.
    int Replace(char const* from, char const* to)
    {
        if (IsEmpty() || !from || !*from || !to)
        {
            return 0;
        }
        // The arguments may be parts of this very text, which is about to move.
        const DString search(from);
        const DString insert(to);
        const std::size_t fromLength = search.Length();
        const std::size_t toLength = insert.Length();
        std::size_t count = 0;
        for (char const* at = m_pText; (at = std::strstr(at, search.m_pText)) != nullptr; at += fromLength)
        {
            ++count;
        }
        if (count == 0)
        {
            return 0;
        }
        const std::size_t oldLength = Length();
        const std::size_t newLength = oldLength - count * fromLength + count * toLength;
        if (newLength > oldLength)
        {
            ReserveBytes(newLength, true);
        }
        // A growing text is read from the end of the room, so that writing never overtakes reading.
        char const* read = m_pText;
        if (newLength > oldLength)
        {
            read = m_pText + (newLength - oldLength);
            std::memmove(m_pText + (newLength - oldLength), m_pText, oldLength + 1);
        }
        char* write = m_pText;
        for (char const* at; (at = std::strstr(read, search.m_pText)) != nullptr; read = at + fromLength)
        {
            const auto gap = static_cast<std::size_t>(at - read);
            std::memmove(write, read, gap);
            std::memcpy(write + gap, insert.c_str(), toLength);
            write += gap + toLength;
        }
        std::memmove(write, read, std::strlen(read) + 1);
        return static_cast<int>(count);
    }

    /// The first @p n characters; the whole text when it has fewer, "" for a negative @p n.
    [[nodiscard]] DString Left(int n) const
    {
        DString part;
        part.AssignBytes(m_pText, CutLength(n));
        return part;
    }
    /// The last @p n characters; the whole text when it has fewer, "" for a negative @p n.
    [[nodiscard]] DString Right(int n) const
    {
        DString part;
        const std::size_t length = CutLength(n);
        part.AssignBytes(m_pText ? m_pText + (Length() - length) : nullptr, length);
        return part;
    }

private:
    static constexpr std::size_t kMaxBlock = std::size_t{1} << 31; ///< the size word holds no larger power of two

    [[nodiscard]] std::size_t Length() const noexcept { return m_pText ? std::strlen(m_pText) : 0; }

    [[nodiscard]] std::size_t CutLength(int n) const noexcept
    {
        const std::size_t length = Length();
        return n <= 0 ? 0 : (static_cast<std::size_t>(n) < length ? static_cast<std::size_t>(n) : length);
    }

    static DString Join(char const* left, char const* right)
    {
        DString text;
        const std::size_t leftLength = left ? std::strlen(left) : 0;
        const std::size_t rightLength = right ? std::strlen(right) : 0;
        if (leftLength + rightLength > 0)
        {
            text.ReserveBytes(leftLength + rightLength, false);
            text.AppendBytes(left, leftLength);
            text.AppendBytes(right, rightLength);
        }
        return text;
    }

    static void Free(char* text) noexcept
    {
        if (text)
        {
            delete[](text - kSizeWord);
        }
    }

    static char* Allocate(std::size_t length)
    {
        const std::size_t needed = length + kOverhead;
        if (needed > kMaxBlock)
        {
            throw std::bad_alloc();
        }
        std::size_t size = kFirstBlock;
        while (size < needed)
        {
            size *= 2;
        }
        char* const block = new char[size];
        const auto word = static_cast<std::uint32_t>(size);
        std::memcpy(block, &word, kSizeWord);
        block[kSizeWord] = '\0';
        return block + kSizeWord;
    }

    void ReserveBytes(std::size_t length, bool keep)
    {
        if (m_pText && length + kOverhead <= GetAllocSize())
        {
            return;
        }
        char* const text = Allocate(length);
        if (keep && m_pText)
        {
            std::memcpy(text, m_pText, Length() + 1);
        }
        Free(m_pText);
        m_pText = text;
    }

    void AssignBytes(char const* src, std::size_t length)
    {
        if (length == 0)
        {
            if (m_pText)
            {
                *m_pText = '\0';
            }
            return;
        }
        // A source inside this text is never longer than the text, so the block stays and the bytes only move.
        ReserveBytes(length, false);
        std::memmove(m_pText, src, length);
        m_pText[length] = '\0';
    }

    void AppendBytes(char const* src, std::size_t length)
    {
        if (length == 0)
        {
            return;
        }
        const std::size_t oldLength = Length();
        if (m_pText && oldLength + length + kOverhead <= GetAllocSize())
        {
            std::memmove(m_pText + oldLength, src, length);
            m_pText[oldLength + length] = '\0';
            return;
        }
        // The source may lie in the old block: both are read before it goes.
        char* const text = Allocate(oldLength + length);
        std::memcpy(text, c_str(), oldLength);
        std::memcpy(text + oldLength, src, length);
        text[oldLength + length] = '\0';
        Free(m_pText);
        m_pText = text;
    }

    char* m_pText = nullptr; ///< first character, behind the size word; owned
};

static_assert(sizeof(DString) == sizeof(char*), "a DString is a single pointer wherever it crosses a module border");

/// Walk over the tokens of a text that any character of a set separates. An empty text has no token and a text without
/// a separator is one; an empty token stands between neighbouring separators and in front of a leading one, but none
/// behind a separator at the very end. The walk keeps a copy of both texts.
/// @code for (DString::Tokens walk(list, ";"); !walk.Done(); walk.Next()) { Use(walk.Crnt()); } @endcode
class DString::Tokens
{
public:
    /// Stands on the first token. A null or empty @p seps makes the whole text one token.
    Tokens(DString const& text, char const* seps) : m_strText(text), m_strSeps(seps) { First(); }

    /// Back to the first token.
    void First() noexcept
    {
        m_nStart = 0;
        MeasureToken();
    }
    /// True when no token is left to read.
    [[nodiscard]] bool Done() const noexcept { return m_strText.c_str()[m_nStart] == '\0'; }
    /// Steps to the next token; does nothing at the end.
    void Next() noexcept
    {
        m_nStart += m_nLength;
        if (!Done())
        {
            ++m_nStart; // the separator
        }
        MeasureToken();
    }
    /// The token that the walk stands on; "" at the end.
    [[nodiscard]] DString Crnt() const
    {
        DString token;
        token.AssignBytes(m_strText.c_str() + m_nStart, m_nLength);
        return token;
    }

private:
    void MeasureToken() noexcept { m_nLength = std::strcspn(m_strText.c_str() + m_nStart, m_strSeps.c_str()); }

    DString m_strText;
    DString m_strSeps;
    std::size_t m_nStart = 0;
    std::size_t m_nLength = 0;
};

/// Order of DStrings by their bytes, null as "": for maps with text keys. Looks up plain text without making a DString.
struct DStringLess
{
    using is_transparent = void;

    bool operator()(DString const& left, DString const& right) const noexcept
    {
        return std::strcmp(left.c_str(), right.c_str()) < 0;
    }
    bool operator()(DString const& left, char const* right) const noexcept
    {
        return std::strcmp(left.c_str(), right ? right : "") < 0;
    }
    bool operator()(char const* left, DString const& right) const noexcept
    {
        return std::strcmp(left ? left : "", right.c_str()) < 0;
    }
};
