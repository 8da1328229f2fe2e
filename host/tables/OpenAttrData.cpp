// OpenAttrData.cpp - finds the file and its format; the readers do the rest
#include "tavkit/frame/services/OpenAttrData.h"

#include "host/FileSource.h"
#include "host/tables/RecodedTable.h"
#include "host/tables/TableFormat.h"

namespace
{
[[nodiscard]] std::optional<table::TableFormat> ChooseFormat(BDIMoniker const& moniker, char const* frmtId,
                                                             host::ByteSource& source)
{
    if (frmtId != nullptr && *frmtId != '\0')
    {
        return table::FormatOfId(frmtId);
    }
    const auto byExtension = table::FormatOfExtension(moniker.GetFrmtExtn().c_str());
    return byExtension ? byExtension : table::FormatOfContent(source);
}
} // namespace

std::unique_ptr<IAttrData> OpenAttrData(BDIMoniker const& moniker, char const* frmtId, DError* error)
{
    const auto fail = [error](char const* cause) {
        if (error != nullptr)
        {
            error->SetError(cause);
        }
        return nullptr;
    };
    std::unique_ptr<host::ByteSource> source = host::FileSource::Open(moniker.GetPathOnDisk().c_str());
    if (!source)
    {
        return fail("The file is missing or can't be read.");
    }
    const auto format = ChooseFormat(moniker, frmtId, *source);
    if (!format)
    {
        return fail("The file is no table of a known format.");
    }
    auto opened = table::OpenTable(std::move(source), *format, error);
    if (!opened || opened->CodePage() == table::kSystemCodePage || opened->CodePage() == ::GetACP())
    {
        return opened;
    }
    return std::make_unique<table::RecodedTable>(std::move(opened));
}
