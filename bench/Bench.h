// Bench.h - the frame of the measurements: tasks by name, interleaved rounds, rows of the table
#pragma once

#include <functional>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace bench
{

/// One line of the table.
struct Row
{
    std::string task;             ///< name of the measurement; begins with its task's name
    long long n = 0;              ///< how many things one run handles (cards, pixels, messages)
    double ours = 0;              ///< milliseconds, or megabytes where the name says so
    double reference = 0;         ///< in the same unit
    std::optional<double> target; ///< what ours / reference may be at most, where something is promised

    [[nodiscard]] double Ratio() const noexcept { return ours / reference; }
    [[nodiscard]] bool MeetsTarget() const noexcept { return !target || Ratio() <= *target; }
};

/// The target with two decimals; "" where nothing is promised.
[[nodiscard]] std::string TargetText(const Row& row);

/// The table as a file of tab-separated columns, with a line of headings.
[[nodiscard]] std::string TableText(const std::vector<Row>& rows);

/// The work of one side didn't come out as it must; the text says which and how.
class WorkError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// Throws a WorkError with @p text unless @p condition holds.
void Require(bool condition, const std::string& text);

/// Medians of two sides that were measured in turns.
struct Medians
{
    double ours;      ///< milliseconds
    double reference; ///< milliseconds
};

/// One side of a comparison.
struct Side
{
    std::function<void()> run;               ///< what is measured
    std::function<void()> prepare = nullptr; ///< before each run, not measured; may be empty
    std::function<void()> check = nullptr;   ///< after each run, not measured; throws WorkError; may be empty
};

/// Rounds of a comparison, the warm-up round not counted.
constexpr int kRounds = 9;

/// Runs both sides once to warm up, then @p rounds times in turns; which side begins alternates, so that neither
/// always finds the caches as the other left them.
/// @param rounds  at least 5.
[[nodiscard]] Medians Interleave(const Side& ours, const Side& reference, int rounds = kRounds);

/// The middle of @p values; of an even number the mean of the two in the middle. 0 of none.
[[nodiscard]] double Median(std::vector<double> values) noexcept;

/// A measurement that can be asked for by name.
struct Task
{
    const char* name;
    std::vector<Row> (*run)(); ///< throws WorkError
};

/// Puts a task into the list, in which Tasks() hands it out sorted by name.
class Registration
{
public:
    Registration(const char* name, std::vector<Row> (*run)());
};

/// All tasks, by name.
[[nodiscard]] std::vector<Task> Tasks();

/// Runs a helper process of this program, "--peak SIDE PICTURE RESULT"; see Image.cpp.
/// @return the exit code.
int RunPeak(const std::string& side, const std::string& picture, const std::string& result);

} // namespace bench
