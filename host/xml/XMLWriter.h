// XMLWriter.h - makes the text of a file from a tree of elements
#pragma once

#include <optional>
#include <string>

#include "tavkit/frame/services/XMLNode.h"

/// Writes XML in UTF-8, attributes in their order, one element on a line.
class XMLWriter
{
public:
    /// The document with @p root as its root element; nothing if a name or a value can't stand in XML.
    static std::optional<std::string> Write(XMLNode const& root);
};
