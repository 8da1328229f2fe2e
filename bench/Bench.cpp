#include "bench/Bench.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>

namespace bench
{
namespace
{

std::vector<Task>& AllTasks()
{
    static std::vector<Task> tasks;
    return tasks;
}

std::string Number(double value, int decimals)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", decimals, value);
    return text;
}

/// @return milliseconds that the side's run took.
double Measure(const Side& side)
{
    if (side.prepare)
    {
        side.prepare();
    }
    const auto start = std::chrono::steady_clock::now();
    side.run();
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
    if (side.check)
    {
        side.check();
    }
    return took.count();
}

} // namespace

std::string TargetText(const Row& row) { return row.target ? Number(*row.target, 2) : std::string(); }

std::string TableText(const std::vector<Row>& rows)
{
    constexpr int kDecimals = 3;
    std::string text = "task\tn\tours_ms\treference_ms\tratio\ttarget\n";
    for (const Row& row : rows)
    {
        text += row.task;
        text += '\t';
        text += std::to_string(row.n);
        for (const double value : {row.ours, row.reference, row.Ratio()})
        {
            text += '\t';
            text += Number(value, kDecimals);
        }
        text += '\t';
        text += TargetText(row);
        text += '\n';
    }
    return text;
}

void Require(bool condition, const std::string& text)
{
    if (!condition)
    {
        throw WorkError(text);
    }
}

double Median(std::vector<double> values) noexcept
{
    if (values.empty())
    {
        return 0;
    }
    std::sort(values.begin(), values.end());
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 != 0 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

Medians Interleave(const Side& ours, const Side& reference, int rounds)
{
    Measure(ours);
    Measure(reference);
    std::vector<double> oursTook;
    std::vector<double> referenceTook;
    for (int round = 0; round < rounds; ++round)
    {
        if (round % 2 == 0)
        {
            oursTook.push_back(Measure(ours));
            referenceTook.push_back(Measure(reference));
        }
        else
        {
            referenceTook.push_back(Measure(reference));
            oursTook.push_back(Measure(ours));
        }
    }
    return {Median(oursTook), Median(referenceTook)};
}

Registration::Registration(const char* name, std::vector<Row> (*run)()) { AllTasks().push_back({name, run}); }

std::vector<Task> Tasks()
{
    std::vector<Task> tasks = AllTasks();
    std::sort(tasks.begin(), tasks.end(), [](const Task& a, const Task& b) { return std::strcmp(a.name, b.name) < 0; });
    return tasks;
}

} // namespace bench
