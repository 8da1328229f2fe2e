#include "workbench/TourPage.h"

namespace workbench
{
namespace
{
std::string Escape(std::string_view text)
{
    std::string escaped;
    for (const char c : text)
    {
        switch (c)
        {
        case '&':
            escaped += "&amp;";
            break;
        case '<':
            escaped += "&lt;";
            break;
        case '>':
            escaped += "&gt;";
            break;
        case '"':
            escaped += "&quot;";
            break;
        default:
            escaped += c;
        }
    }
    return escaped;
}

constexpr std::string_view kHead = R"(<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="windows-1252">
<title>TavKit Workbench: the tour</title>
<style>
body { font-family: sans-serif; max-width: 1300px; margin: 2em auto; padding: 0 1em; background: #f4f4f4; color: #222; }
figure { margin: 0 0 3em; }
figcaption { margin: 0 0 .6em; font-size: 1.1em; }
img { max-width: 100%; border: 1px solid #ccc; background: #fff; }
.failures { color: #a00; }
</style>
</head>
<body>
<h1>TavKit Workbench: the tour</h1>
)";
} // namespace

std::string MakeTourPage(const std::vector<TourStop>& stops, const std::vector<std::string>& failures)
{
    std::string page(kHead);
    if (failures.empty())
    {
        page += "<p>" + std::to_string(stops.size()) + " pictures; everything was as expected.</p>\n";
    }
    else
    {
        page += "<ul class=\"failures\">\n";
        for (const auto& failure : failures)
        {
            page += "<li>" + Escape(failure) + "</li>\n";
        }
        page += "</ul>\n";
    }
    for (const auto& stop : stops)
    {
        page += "<figure>\n<figcaption>" + Escape(stop.caption) + "</figcaption>\n<img src=\"" + Escape(stop.file) +
                "\" alt=\"" + Escape(stop.caption) + "\">\n</figure>\n";
    }
    page += "</body>\n</html>\n";
    return page;
}

std::string FileNamePart(std::string_view text)
{
    std::string part;
    for (const char c : text)
    {
        const bool isUpper = c >= 'A' && c <= 'Z';
        if (isUpper || (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9'))
        {
            part += isUpper ? static_cast<char>(c - 'A' + 'a') : c;
        }
        else if (!part.empty() && part.back() != '-')
        {
            part += '-';
        }
    }
    while (part.ends_with('-'))
    {
        part.pop_back();
    }
    return part;
}
} // namespace workbench
