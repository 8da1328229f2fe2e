// XMLReader.cpp
#include "host/xml/XMLReader.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <windows.h>
#include <msxml2.h>
#include <objbase.h>
#include <oleauto.h>
#include <wrl/client.h>

#include "host/FileBytes.h"

using Microsoft::WRL::ComPtr;

namespace
{
constexpr wchar_t const* kParser = L"Msxml2.DOMDocument.6.0";
/// Of IXMLDOMDocument2; the tool chain's import libraries don't have it.
constexpr IID kDocumentInterface = {0x2933BF95, 0x7B36, 0x11D2, {0xB2, 0x0E, 0x00, 0xC0, 0x4F, 0x98, 0x3E, 0x60}};
constexpr wchar_t const* kProhibitDtd = L"ProhibitDTD";
constexpr wchar_t kReplacement = 0xFFFD; ///< no code page has it: it reads as "?"

/// COM for the calling thread, for the time of a block.
class ComScope
{
public:
    ComScope() : m_hr(::CoInitialize(nullptr)) {}
    ComScope(ComScope const&) = delete;
    ComScope& operator=(ComScope const&) = delete;
    ~ComScope()
    {
        if (SUCCEEDED(m_hr)) // a thread that has chosen another model is served all the same
        {
            ::CoUninitialize();
        }
    }

private:
    HRESULT m_hr;
};

/// Owner of a text handed out by COM.
class Bstr
{
public:
    Bstr() = default;
    explicit Bstr(wchar_t const* text) : m_text(::SysAllocString(text)) {}
    Bstr(Bstr const&) = delete;
    Bstr& operator=(Bstr const&) = delete;
    ~Bstr() { ::SysFreeString(m_text); }
    BSTR* Put() { return &m_text; }
    [[nodiscard]] BSTR Get() const { return m_text; }

    /// The text in the ANSI code page; what it lacks becomes one "?" for each character.
    [[nodiscard]] std::string ToAnsi() const
    {
        std::wstring wide;
        wide.reserve(::SysStringLen(m_text));
        for (UINT i = 0; i < ::SysStringLen(m_text); ++i)
        {
            const bool pair = IS_HIGH_SURROGATE(m_text[i]) && i + 1 < ::SysStringLen(m_text);
            wide += pair ? kReplacement : m_text[i];
            i += pair ? 1 : 0;
        }
        if (wide.empty())
        {
            return {};
        }
        // Letters that only look alike aren't put in place of those that are missing.
        constexpr DWORD kExact = WC_NO_BEST_FIT_CHARS;
        const int wideLength = static_cast<int>(wide.size());
        const int length = ::WideCharToMultiByte(CP_ACP, kExact, wide.c_str(), wideLength, nullptr, 0, "?", nullptr);
        std::string text(static_cast<std::size_t>(length), '\0');
        ::WideCharToMultiByte(CP_ACP, kExact, wide.c_str(), wideLength, text.data(), length, "?", nullptr);
        return text;
    }

private:
    BSTR m_text = nullptr;
};

VARIANT Variant(bool value)
{
    VARIANT variant;
    ::VariantInit(&variant);
    variant.vt = VT_BOOL;
    variant.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    return variant;
}

/// Owner of an array of bytes as COM hands it on.
class Bytes
{
public:
    explicit Bytes(std::string_view bytes)
    {
        ::VariantInit(&m_variant);
        m_variant.parray = ::SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
        void* data = nullptr;
        if (m_variant.parray && SUCCEEDED(::SafeArrayAccessData(m_variant.parray, &data)))
        {
            m_variant.vt = VT_ARRAY | VT_UI1;
            std::ranges::copy(bytes, static_cast<char*>(data));
            ::SafeArrayUnaccessData(m_variant.parray);
        }
    }
    Bytes(Bytes const&) = delete;
    Bytes& operator=(Bytes const&) = delete;
    ~Bytes() { ::VariantClear(&m_variant); }
    [[nodiscard]] bool IsValid() const { return m_variant.vt != VT_EMPTY; }
    [[nodiscard]] VARIANT const& Get() const { return m_variant; }

private:
    VARIANT m_variant;
};

/// A parser that takes nothing but the bytes it is given; empty if the platform has none.
ComPtr<IXMLDOMDocument2> MakeParser()
{
    ComPtr<IXMLDOMDocument2> parser;
    CLSID id;
    if (FAILED(::CLSIDFromProgID(kParser, &id)) ||
        FAILED(::CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, kDocumentInterface,
                                  reinterpret_cast<void**>(parser.ReleaseAndGetAddressOf()))))
    {
        return {};
    }
    parser->put_async(VARIANT_FALSE);
    parser->put_resolveExternals(VARIANT_FALSE);
    parser->put_validateOnParse(VARIANT_FALSE);
    parser->setProperty(Bstr(kProhibitDtd).Get(), Variant(true));
    return parser;
}

/// True if a character of code 0 stands in the document: some versions of the parser take it for the end.
bool HasZero(std::string_view document)
{
    const std::string_view start = document.substr(0, 2);
    const bool wide = start == "\xFF\xFE" || start == "\xFE\xFF" || start.find('\0') != std::string_view::npos;
    if (!wide)
    {
        return document.find('\0') != std::string_view::npos;
    }
    for (std::size_t i = 0; i + 1 < document.size(); i += 2)
    {
        if (document[i] == '\0' && document[i + 1] == '\0')
        {
            return true;
        }
    }
    return false;
}

bool ParseDocument(IXMLDOMDocument2& parser, std::string_view document, ComPtr<IXMLDOMNode>& root)
{
    // Bytes in one piece: some versions of the parser gather a stream in small steps, each copying all before it.
    Bytes bytes(document);
    VARIANT_BOOL loaded = VARIANT_FALSE;
    if (!bytes.IsValid() || parser.load(bytes.Get(), &loaded) != S_OK || loaded != VARIANT_TRUE)
    {
        return false;
    }
    // Not every version of the parser heeds the prohibition.
    ComPtr<IXMLDOMDocumentType> documentType;
    if (parser.get_doctype(documentType.ReleaseAndGetAddressOf()) == S_OK && documentType)
    {
        return false;
    }
    ComPtr<IXMLDOMElement> element;
    return parser.get_documentElement(element.ReleaseAndGetAddressOf()) == S_OK && element &&
           SUCCEEDED(element->QueryInterface(IID_IXMLDOMNode, reinterpret_cast<void**>(root.ReleaseAndGetAddressOf())));
}

/// @p node itself if it is an element, otherwise the next sibling that is one; empty when there is none.
ComPtr<IXMLDOMNode> ElementFrom(ComPtr<IXMLDOMNode> node)
{
    while (node)
    {
        DOMNodeType type = NODE_INVALID;
        if (SUCCEEDED(node->get_nodeType(&type)) && type == NODE_ELEMENT)
        {
            break;
        }
        ComPtr<IXMLDOMNode> next;
        node->get_nextSibling(next.ReleaseAndGetAddressOf());
        node = std::move(next);
    }
    return node;
}

ComPtr<IXMLDOMNode> FirstChild(IXMLDOMNode& node)
{
    ComPtr<IXMLDOMNode> child;
    node.get_firstChild(child.ReleaseAndGetAddressOf());
    return ElementFrom(std::move(child));
}

ComPtr<IXMLDOMNode> NextSibling(IXMLDOMNode& node)
{
    ComPtr<IXMLDOMNode> next;
    node.get_nextSibling(next.ReleaseAndGetAddressOf());
    return ElementFrom(std::move(next));
}
} // namespace

/// True if two attributes have the same name. The parser refuses doubles as they are written, but some versions drop a
/// prefix that was never declared. A name with "?" held a character that the code page lacks and may stand twice.
static bool HasDoubles(std::vector<std::pair<std::string, std::string>> const& list)
{
    std::vector<std::string_view> names;
    for (auto const& [name, value] : list)
    {
        if (name.find('?') == std::string::npos)
        {
            names.push_back(name);
        }
    }
    std::ranges::sort(names);
    return std::ranges::adjacent_find(names) != names.end();
}

/// Reads name and attributes of an element; false if they can't be had or contradict each other.
static bool ReadElement(IXMLDOMNode& element, std::string& name, std::vector<std::pair<std::string, std::string>>& list)
{
    Bstr nodeName;
    if (FAILED(element.get_nodeName(nodeName.Put())))
    {
        return false;
    }
    name = nodeName.ToAnsi();
    list.clear();
    ComPtr<IXMLDOMNamedNodeMap> attributes;
    long count = 0;
    if (element.get_attributes(attributes.ReleaseAndGetAddressOf()) != S_OK || FAILED(attributes->get_length(&count)))
    {
        return false;
    }
    for (long i = 0; i < count; ++i)
    {
        ComPtr<IXMLDOMNode> attribute;
        Bstr key;
        Bstr value;
        if (attributes->get_item(i, attribute.ReleaseAndGetAddressOf()) != S_OK ||
            FAILED(attribute->get_nodeName(key.Put())) || FAILED(attribute->get_text(value.Put())))
        {
            return false;
        }
        list.emplace_back(key.ToAnsi(), value.ToAnsi());
    }
    return !HasDoubles(list);
}

bool XMLReader::Read(std::string_view document, XMLNode& root)
{
    const ComScope com;
    const ComPtr<IXMLDOMDocument2> parser = MakeParser();
    ComPtr<IXMLDOMNode> element;
    if (HasZero(document) || !parser || !ParseDocument(*parser.Get(), document, element))
    {
        return false;
    }

    std::string name;
    std::vector<std::pair<std::string, std::string>> attributes;
    const auto take = [&](IXMLDOMNode& from, XMLNode& to) {
        if (!ReadElement(from, name, attributes))
        {
            return false;
        }
        to.m_strName = name.c_str();
        for (auto const& [key, value] : attributes)
        {
            to.m_vecAttr.push_back({key.c_str(), value.c_str()});
        }
        return true;
    };

    // Elements that are open, outermost first: the depth of the file lies on the heap.
    std::vector<std::pair<ComPtr<IXMLDOMNode>, XMLNode*>> open;
    if (!take(*element.Get(), root))
    {
        return false;
    }
    open.emplace_back(element, &root);
    ComPtr<IXMLDOMNode> next = FirstChild(*element.Get());
    while (!open.empty())
    {
        if (next)
        {
            if (open.size() == XMLNode::kMaxDepth)
            {
                return false;
            }
            auto child = std::make_unique<XMLNode>(nullptr);
            XMLNode* const node = child.get();
            open.back().second->AddChld(child.release());
            if (!take(*next.Get(), *node))
            {
                return false;
            }
            open.emplace_back(next, node);
            next = FirstChild(*next.Get());
        }
        else
        {
            ComPtr<IXMLDOMNode> closed = std::move(open.back().first);
            open.pop_back();
            next = open.empty() ? ComPtr<IXMLDOMNode>() : NextSibling(*closed.Get());
        }
    }
    return true;
}

bool XMLNode::Load(DFile const& file, char const* elmt)
{
    const std::optional<std::string> document = host::ReadWholeFile(file, kMaxFileBytes);
    XMLNode loaded(nullptr);
    if (!document || document->empty() || !XMLReader::Read(*document, loaded) || (elmt && loaded.m_strName != elmt))
    {
        return false;
    }
    TakeContent(loaded);
    return true;
}
