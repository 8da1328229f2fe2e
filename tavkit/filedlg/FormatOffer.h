// FormatOffer.h - the formats that a file dialog offers: their order, finding one, and the filter text
#pragma once

#include "tavkit/frame/Export.h"
#include "tavkit/frame/services/DFileFrmt.h"
#include "tavkit/frame/services/DList.h"
#include "tavkit/frame/services/DVector.h"

#include <span>

namespace tavkit
{

/// The formats on offer, in the order of the filter. Nothing is owned, and a format may be there twice.
using FormatOffer = DVector<DFileFrmt*>;

/// In place of a pattern: a format that stands for rasters of every kind and has no file names of its own.
inline constexpr char kRasterMarker[] = "RSTR_FRMT";

/// Inserts a format in front of the first one with a greater name, by bytes; equal names keep the order of arrival. The
/// whole offer is looked at, so a format may land ahead of one that was appended unsorted. That is wanted.
TAVKIT_API void AddSorted(FormatOffer& offer, DFileFrmt* format);

/// Removes the first entry that is this very format; one that isn't there changes nothing.
TAVKIT_API void RemoveFormat(FormatOffer& offer, DFileFrmt const* format);

/// The first format with exactly that identifier, null for none; a null text reads as "".
[[nodiscard]] TAVKIT_API DFileFrmt* FindById(FormatOffer const& offer, char const* id);
/// The same by name.
[[nodiscard]] TAVKIT_API DFileFrmt* FindByName(FormatOffer const& offer, char const* name);

/// The same by pattern.
[[nodiscard]] TAVKIT_API DFileFrmt* FindByPattern(FormatOffer const& offer, char const* pattern);

/// Place of the first format with that name; 0 if there is none among the first @p count of the offer.
[[nodiscard]] TAVKIT_API int IndexOfName(FormatOffer const& offer, int count, char const* name);

/// All patterns, separated by ";", without those that take every file.
[[nodiscard]] TAVKIT_API DString JoinPatterns(FormatOffer const& offer);

/// The file dialog's pattern for the files of a custom import: "*." and the extension of the import's own pattern,
/// without stars at its end unless it is a single star.
[[nodiscard]] TAVKIT_API DString ImportPattern(DString const& filePattern);

/// Offers the formats of a list, sorted by name. Those that carry the raster marker leave the list in any case; for
/// loading they are offered ahead of the others, unsorted. Nobody deletes them then, for the offer needs them as long
/// as the dialog lives. Null pointers leave the list too.
TAVKIT_API void OfferPluginFormats(FormatOffer& offer, DList<DFileFrmt*>& formats, bool load);

/// Starts a filter text: empties it.
inline void InitFilterText(char* filter) noexcept { *filter = '\0'; }
/// Closes a filter text: appends the last bar.
TAVKIT_API void FinishFilterText(char* filter) noexcept;

/// Puts the filter text together: for every format its name, a bar, its pattern and a bar, and one more bar at the end.
/// Nothing is written past @p buffer, which has room for two characters at least: from the first format on that doesn't
/// fit, formats are left out whole.
/// @return how many formats are in the text
[[nodiscard]] TAVKIT_API int BuildFilterText(FormatOffer const& offer, std::span<char> buffer);

/// Place, among the pairs of name and pattern of a filter text, of the first one whose pattern contains @p text, in the
/// same case. An empty text is in every pattern but an empty one. If it is in none, the number of pairs: that is one
/// past the last, and wanted.
/// @param filter  every name and every pattern with a bar behind it; null has no pairs
[[nodiscard]] TAVKIT_API int FilterIndexOf(char const* filter, char const* text);

} // namespace tavkit
