// CnfgLdrFuzz.cpp - any bytes as a product configuration: taken, or refused with nothing left of it
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "../support/TempFolder.h"
#include "tavkit/frame/services/CnfgLdr.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    static const support::TempFolder folder;
    const std::string path = folder.Write("p.xml", std::string_view(reinterpret_cast<char const*>(data), size));
    CnfgLdr* const loader = CnfgLdr::Instance();
    const bool loaded = loader->Load(path.c_str());
    const DString folders = loader->GetDfltFldr("Images", "dflt");
    CnfgLdr::TextBlock const* const block = loader->GetTextBlock("About");
    const bool clean = folders == "dflt" && !block && loader->GetPlugins().empty() && loader->GetCustImports().empty();
    if ((!loaded && !clean) || (block && (!block->pszFont || std::strlen(block->pszFont) > size)))
    {
        std::abort();
    }
    return 0;
}
