// DStringFuzz.cpp - replace, format, trim and token walk of DString against plain std::string models
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "tavkit/frame/services/DString.h"

namespace
{
void Require(bool holds)
{
    if (!holds)
    {
        std::abort();
    }
}

/// The input up to the next zero byte, which is taken away with it.
std::string TakeText(std::string_view& input)
{
    const std::size_t end = std::min(input.find('\0'), input.size());
    std::string text(input.substr(0, end));
    input.remove_prefix(std::min(end + 1, input.size()));
    return text;
}

void CheckReplace(std::string const& text, std::string const& from, std::string const& to)
{
    std::string expected = text;
    int count = 0;
    if (!from.empty())
    {
        for (std::size_t at = 0; (at = expected.find(from, at)) != std::string::npos; at += to.size())
        {
            expected.replace(at, from.size(), to);
            ++count;
        }
    }
    DString actual(text.c_str());
    Require(actual.Replace(from.c_str(), to.c_str()) == count);
    Require(actual == expected.c_str());
    Require(actual.GetLength() == static_cast<int>(expected.size()));
    Require(expected.empty() || actual.GetAllocSize() >= expected.size() + 5);
}

void CheckTokens(std::string const& text, std::string const& seps)
{
    std::vector<std::string> expected;
    for (std::size_t start = 0; start < text.size();)
    {
        const std::size_t stop = std::min(text.find_first_of(seps, start), text.size());
        expected.push_back(text.substr(start, stop - start));
        start = stop + 1;
    }
    std::size_t index = 0;
    for (DString::Tokens walk(text.c_str(), seps.c_str()); !walk.Done(); walk.Next(), ++index)
    {
        Require(index < expected.size() && walk.Crnt() == expected[index].c_str());
    }
    Require(index == expected.size());
}

void CheckParts(std::string const& text, std::string const& set, int n)
{
    const DString value(text.c_str());
    const std::size_t count = std::min(static_cast<std::size_t>(std::max(n, 0)), text.size());
    Require(value.Left(n) == text.substr(0, count).c_str());
    Require(value.Right(n) == text.substr(text.size() - count).c_str());

    DString trimmed(value);
    trimmed.TrimRight(set.c_str());
    const std::size_t last = text.find_last_not_of(set);
    Require(trimmed == text.substr(0, last == std::string::npos ? 0 : last + 1).c_str());

    DString assigned("old");
    assigned.Assign(text.c_str(), n, 3);
    const bool outside = n < 0 || static_cast<std::size_t>(n) >= text.size();
    Require(assigned == (outside ? std::string("old") : text.substr(static_cast<std::size_t>(n), 3)).c_str());

    Require(DString::Format("<%s|%d>", text.c_str(), n) == ("<" + text + "|" + std::to_string(n) + ">").c_str());

    DString doubled(value);
    doubled += doubled;
    Require(doubled == (text + text).c_str());
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size)
{
    std::string_view input(reinterpret_cast<char const*>(data), size);
    const int n = input.empty() ? 0 : static_cast<signed char>(input.front());
    input.remove_prefix(std::min<std::size_t>(1, input.size()));
    const std::string first = TakeText(input);
    const std::string second = TakeText(input);
    const std::string text = TakeText(input);
    CheckReplace(text, first, second);
    CheckTokens(text, first);
    CheckParts(text, second, n);
    return 0;
}
