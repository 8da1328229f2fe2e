// XMLReader.h - makes a tree of elements from a file's bytes
#pragma once

#include <string_view>

#include "tavkit/frame/services/XMLNode.h"

/// Reads XML with the platform's parser: no document type, nothing from outside the file, every fault refused.
class XMLReader
{
public:
    /// Fills @p root, which is empty, from a document. False leaves it in pieces: the caller throws it away.
    static bool Read(std::string_view document, XMLNode& root);
};
