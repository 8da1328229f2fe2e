// FormatOffer.cpp
#include "tavkit/filedlg/FormatOffer.h"
#include "tavkit/filedlg/FormatCatalogue.h"

#include "tavkit/frame/services/DFile.h"

#include <algorithm>
#include <cstring>

namespace tavkit
{

namespace
{

constexpr char kBar[] = "|";
constexpr std::size_t kBarsOfFormat = 2; ///< behind the name and behind the pattern

/// The first format whose text equals @p text.
template <DString DFileFrmt::*Text>
[[nodiscard]] DFileFrmt* FindFormat(FormatOffer const& offer, char const* text)
{
    DFileFrmt* const* const found =
        std::find_if(offer.begin(), offer.end(), [&](DFileFrmt const* format) { return format->*Text == text; });
    return found == offer.end() ? nullptr : *found;
}

/// Room that the format's GetFilter needs.
[[nodiscard]] std::size_t FilterLength(DFileFrmt const& format) noexcept
{
    return std::strlen(format.m_strName.c_str()) + std::strlen(format.m_strPattern.c_str()) + kBarsOfFormat;
}

} // namespace

void AddSorted(FormatOffer& offer, DFileFrmt* format)
{
    DFileFrmt* const* const greater = std::find_if(offer.begin(), offer.end(), [&](DFileFrmt const* each) {
        return std::strcmp(each->m_strName.c_str(), format->m_strName.c_str()) > 0;
    });
    InsertAt(offer, static_cast<int>(greater - offer.begin()), format);
}

void RemoveFormat(FormatOffer& offer, DFileFrmt const* format)
{
    DFileFrmt* const* const found = std::find(offer.begin(), offer.end(), format);
    RemoveAt(offer, static_cast<int>(found - offer.begin()));
}

DFileFrmt* FindById(FormatOffer const& offer, char const* id) { return FindFormat<&DFileFrmt::m_strId>(offer, id); }

DFileFrmt* FindByName(FormatOffer const& offer, char const* name)
{
    return FindFormat<&DFileFrmt::m_strName>(offer, name);
}

DFileFrmt* FindByPattern(FormatOffer const& offer, char const* pattern)
{
    return FindFormat<&DFileFrmt::m_strPattern>(offer, pattern);
}

int IndexOfName(FormatOffer const& offer, int count, char const* name)
{
    for (int i = 0; i < count && i < offer.GetCount(); ++i)
    {
        if (offer[i]->m_strName == name)
        {
            return i;
        }
    }
    return 0;
}

DString JoinPatterns(FormatOffer const& offer)
{
    DString joined;
    bool isFirst = true;
    for (DFileFrmt const* const format : offer)
    {
        if (format->m_strPattern == FileFrmtAll.m_strPattern)
        {
            continue;
        }
        joined += isFirst ? "" : ";";
        joined += format->m_strPattern;
        isFirst = false;
    }
    return joined;
}

DString ImportPattern(DString const& filePattern)
{
    constexpr char kStar[] = "*";
    DString extension = DFile(filePattern.c_str()).GetPhysFileExtn();
    if (!(extension == kStar))
    {
        extension.TrimRight(kStar);
    }
    return "*." + extension;
}

void OfferPluginFormats(FormatOffer& offer, DList<DFileFrmt*>& formats, bool load)
{
    while (formats.Remove(nullptr)) // a plug-in may know no better
    {
    }
    for (auto* node = formats.m_pHead; node;)
    {
        if (!(node->m_val->m_strPattern == kRasterMarker))
        {
            node = node->m_pNext;
            continue;
        }
        if (load)
        {
            offer.Append(node->m_val);
        }
        node = formats.Unlink(node);
    }
    for (DFileFrmt* const format : formats)
    {
        AddSorted(offer, format);
    }
}

void FinishFilterText(char* filter) noexcept { std::strcat(filter, kBar); }

int BuildFilterText(FormatOffer const& offer, std::span<char> buffer)
{
    InitFilterText(buffer.data());
    std::size_t room = buffer.size() - sizeof kBar; // the closing bar and the NUL always fit
    char* end = buffer.data();
    int taken = 0;
    for (DFileFrmt const* const format : offer)
    {
        if (FilterLength(*format) > room)
        {
            break;
        }
        format->GetFilter(end);
        const std::size_t written = std::strlen(end);
        end += written;
        room -= written;
        ++taken;
    }
    FinishFilterText(end);
    return taken;
}

int FilterIndexOf(char const* filter, char const* text)
{
    int index = 0;
    for (DString::Tokens walk(filter, kBar); !walk.Done(); ++index)
    {
        walk.Next(); // the name
        if (walk.Done())
        {
            break; // the bar that closes the whole text
        }
        DString const pattern = walk.Crnt();
        if (!pattern.IsEmpty() && std::strstr(pattern.c_str(), text ? text : ""))
        {
            break;
        }
        walk.Next();
    }
    return index;
}

} // namespace tavkit
