// TourPage.h - the page that shows the tour's pictures
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace workbench
{
/// One picture of the tour.
struct TourStop
{
    std::string file;    ///< name of the picture's file, beside the page
    std::string caption; ///< what is seen, as a sentence
};

/// The whole page, pictures in their order, in the ANSI code page.
/// @param failures  what went wrong, as sentences; empty when all went well
[[nodiscard]] std::string MakeTourPage(const std::vector<TourStop>& stops, const std::vector<std::string>& failures);

/// A part of a file name made of a text: lower case letters and digits, everything else joined to one hyphen.
[[nodiscard]] std::string FileNamePart(std::string_view text);
} // namespace workbench
