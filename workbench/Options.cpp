#include "workbench/Options.h"

#include <string_view>

namespace workbench
{
namespace
{
constexpr std::string_view kTourOption = "--tour";
constexpr std::string_view kOptionMark = "--";
} // namespace

Options ReadOptions(std::span<const char* const> arguments)
{
    Options options;
    for (size_t i = 0; i < arguments.size() && options.error.empty(); ++i)
    {
        std::string_view argument = arguments[i];
        if (argument.ends_with('"'))
        {
            argument.remove_suffix(1); // of "C:\\Pictures\\", whose last backslash keeps the quote from closing
        }
        if (argument == kTourOption)
        {
            if (i + 1 == arguments.size() || *arguments[i + 1] == 0)
            {
                options.error = "The option --tour needs a folder.";
                break;
            }
            options.tourFolder = arguments[++i];
        }
        else if (argument.starts_with(kOptionMark))
        {
            options.error = "There is no option " + std::string(argument) + ".";
        }
        else if (!options.path.empty())
        {
            options.error = "Only one folder or file can be shown.";
        }
        else
        {
            options.path = argument;
        }
    }
    return options;
}
} // namespace workbench
