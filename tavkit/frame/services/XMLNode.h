// XMLNode.h - an XML element with its attributes and children
#pragma once

#include <vector>

#include "tavkit/frame/services/DFile.h"
#include "tavkit/frame/services/DString.h"

/// An XML element. Attributes keep their order. Children hang on two public links, first child and next sibling, which
/// a caller walks itself. A node owns its children; nothing here recurses, however deep the tree is. Texts are of the
/// ANSI code page; a file is UTF-8 or what it declares, and a character that the code page lacks reads as "?".
class TAVHOST_API XMLNode
{
public:
    static constexpr unsigned int kMaxFileBytes = 256u * 1024 * 1024; ///< a larger file isn't loaded
    static constexpr unsigned int kMaxDepth = 255; ///< levels; the platform's parser refuses a deeper file

    /// @param name  the element's name, copied; null for a node to load into.
    explicit XMLNode(char const* name);
    XMLNode(XMLNode const&) = delete;
    XMLNode& operator=(XMLNode const&) = delete;
    /// Deletes the children. The next sibling stays: it belongs to the parent.
    ~XMLNode();

    /// Reads the root element of @p file with all elements below it; character data, comments and processing
    /// instructions are passed over. Everything that this node held is replaced.
    /// @param elmt  null; otherwise the name that the root element must have.
    /// @return false, and this node as it was, for a file that can't be read, isn't well formed or has a document type.
    bool Load(DFile const& file, char const* elmt);
    /// Writes this element and all below it as UTF-8. The file is replaced in one step, when it has been written whole.
    /// @return false, and the old file as it was, if it can't be written, or if a name or value is no XML.
    bool Save(DFile const& file) const;

    /// The element's name, never null; valid until the next Load.
    [[nodiscard]] char const* GetName() const;
    /// The attribute's text; "" when it is missing.
    [[nodiscard]] DString GetAttrStr(char const* name) const;
    /// The attribute's text as a decimal number; 0 when it is missing or no number, the nearest int when out of range.
    [[nodiscard]] int GetAttrInt(char const* name) const;
    /// True for "true" and for every integer text other than 0.
    [[nodiscard]] bool GetAttrBool(char const* name) const;
    [[nodiscard]] bool HasAttr(char const* name) const;
    [[nodiscard]] int GetNumAttr() const;
    /// Name of the attribute at @p index in the order of the file; "" outside.
    [[nodiscard]] DString GetAttrName(int index) const;

    // Appends an attribute, or gives the one of that name a new value in its old place. A null or empty name is
    // ignored; a null text counts as "". A bool is written as "true" or "false".
    void AddAttr(char const* name, int value);
    void AddAttr(char const* name, bool value);
    void AddAttr(char const* name, char const* value);

    /// Appends @p child behind the last child and takes ownership. Null is ignored. Takes constant time.
    void AddChld(XMLNode* child);

    /// Takes @p child out and gives it to the caller; null if it is no child of this node.
    XMLNode* RmvChld(XMLNode* child);

    // The links are part of the interface, for walking. Whoever links further children by hand keeps them a tree; a
    // child leaves by RmvChld.
    XMLNode* m_pFrstChld = nullptr; ///< first child, owned
    XMLNode* m_pNext = nullptr;     ///< next sibling, owned by the parent

private:
    struct Attr
    {
        DString m_strName;
        DString m_strValue;
    };

    friend class XMLReader;
    friend class XMLWriter;

    [[nodiscard]] Attr const* FindAttr(char const* name) const;
    void DeleteChildren() noexcept;
    void TakeContent(XMLNode& other) noexcept;

    DString m_strName;
    std::vector<Attr> m_vecAttr;
    XMLNode* m_pLastChld = nullptr; ///< where the search for the end of the children begins; may be null
};
