// XMLWriter.cpp
#include "host/xml/XMLWriter.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include <windows.h>

#include "host/FileBytes.h"

namespace
{
constexpr std::string_view kDeclaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\r\n";
constexpr std::size_t kMaxIndent = 32; ///< elements; deeper ones stand below one another
constexpr wchar_t kSpace = L' ';       ///< what is below it is a control character

struct Range
{
    wchar_t first;
    wchar_t last;
};
/// Letters that a name may begin with.
constexpr Range kNameStart[] = {{L':', L':'},     {L'A', L'Z'},     {L'_', L'_'},     {L'a', L'z'},
                                {0x00C0, 0x00D6}, {0x00D8, 0x00F6}, {0x00F8, 0x02FF}, {0x0370, 0x037D},
                                {0x037F, 0x1FFF}, {0x200C, 0x200D}, {0x2070, 0x218F}, {0x2C00, 0x2FEF},
                                {0x3001, 0xD7FF}, {0xF900, 0xFDCF}, {0xFDF0, 0xFFFD}};
/// What may stand in a name behind the first letter besides.
constexpr Range kNameRest[] = {{L'-', L'.'}, {L'0', L'9'}, {0x00B7, 0x00B7}, {0x0300, 0x036F}, {0x203F, 0x2040}};

template <std::size_t N>
bool IsIn(Range const (&ranges)[N], wchar_t c)
{
    return std::ranges::any_of(ranges, [c](Range range) { return c >= range.first && c <= range.last; });
}

bool IsName(std::wstring_view name)
{
    return !name.empty() && IsIn(kNameStart, name.front()) &&
           std::ranges::all_of(name, [](wchar_t c) { return IsIn(kNameStart, c) || IsIn(kNameRest, c); });
}

bool IsValue(std::wstring_view value)
{
    return std::ranges::all_of(value, [](wchar_t c) { return c >= kSpace || c == L'\t' || c == L'\n' || c == L'\r'; });
}

std::wstring ToWide(char const* text, int length)
{
    std::wstring wide(static_cast<std::size_t>(::MultiByteToWideChar(CP_ACP, 0, text, length, nullptr, 0)), L'\0');
    ::MultiByteToWideChar(CP_ACP, 0, text, length, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

void AppendUtf8(std::string& out, std::wstring_view text)
{
    const int wideLength = static_cast<int>(text.size());
    const int length = ::WideCharToMultiByte(CP_UTF8, 0, text.data(), wideLength, nullptr, 0, nullptr, nullptr);
    const std::size_t start = out.size();
    out.resize(start + static_cast<std::size_t>(length));
    ::WideCharToMultiByte(CP_UTF8, 0, text.data(), wideLength, out.data() + start, length, nullptr, nullptr);
}

/// Appends a name; false if it is none.
bool AppendName(std::string& out, DString const& name)
{
    const std::wstring wide = ToWide(name.c_str(), name.GetLength());
    if (!IsName(wide))
    {
        return false;
    }
    AppendUtf8(out, wide);
    return true;
}

/// Appends the value of an attribute, without quotes; false if it holds a character that XML has no way to write.
bool AppendValue(std::string& out, DString const& value)
{
    const std::wstring wide = ToWide(value.c_str(), value.GetLength());
    if (!IsValue(wide))
    {
        return false;
    }
    std::wstring escaped;
    escaped.reserve(wide.size());
    for (const wchar_t c : wide)
    {
        switch (c)
        {
        case L'&':
            escaped += L"&amp;";
            break;
        case L'<':
            escaped += L"&lt;";
            break;
        case L'>':
            escaped += L"&gt;";
            break;
        case L'"':
            escaped += L"&quot;";
            break;
        case L'\t': // written as they are, these three would be read as blanks
            escaped += L"&#9;";
            break;
        case L'\n':
            escaped += L"&#10;";
            break;
        case L'\r':
            escaped += L"&#13;";
            break;
        default:
            escaped += c;
        }
    }
    AppendUtf8(out, escaped);
    return true;
}

void AppendIndent(std::string& out, std::size_t depth) { out.append(2 * std::min(depth, kMaxIndent), ' '); }
} // namespace

std::optional<std::string> XMLWriter::Write(XMLNode const& root)
{
    std::string out(kDeclaration);
    std::vector<XMLNode const*> open; // elements whose end tag is due, outermost first
    XMLNode const* node = &root;
    while (node)
    {
        AppendIndent(out, open.size());
        out += '<';
        if (!AppendName(out, node->m_strName))
        {
            return std::nullopt;
        }
        for (XMLNode::Attr const& attr : node->m_vecAttr)
        {
            out += ' ';
            if (!AppendName(out, attr.m_strName))
            {
                return std::nullopt;
            }
            out += "=\"";
            if (!AppendValue(out, attr.m_strValue))
            {
                return std::nullopt;
            }
            out += '"';
        }
        if (node->m_pFrstChld)
        {
            out += ">\r\n";
            open.push_back(node);
            node = node->m_pFrstChld;
            continue;
        }
        out += "/>\r\n";
        // The root's own siblings belong to its parent and aren't written.
        while (!open.empty() && !node->m_pNext)
        {
            node = open.back();
            open.pop_back();
            AppendIndent(out, open.size());
            out += "</";
            AppendName(out, node->m_strName);
            out += ">\r\n";
        }
        node = open.empty() ? nullptr : node->m_pNext;
    }
    return out;
}

bool XMLNode::Save(DFile const& file) const
{
    const std::optional<std::string> document = XMLWriter::Write(*this);
    return document && host::ReplaceFileContent(file, *document);
}
