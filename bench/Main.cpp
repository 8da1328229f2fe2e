// Main.cpp - tavkit_bench [TASK...]: measures, prints one table and writes it to bench.tsv
#include "bench/Bench.h"
#include "tavkit/frame/Module.h"
#include "automation/FinishedMark.h"

#include <afxole.h>
#include <afxwin.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <memory>

namespace
{

constexpr int kFailed = 1;
constexpr const char* kTableFile = "bench.tsv";
constexpr const char* kOutFolderVariable = "TAVKIT_OUT";

CWinApp theApp("TavKit Bench");

/// GDI+ for as long as the block lives.
class Graphics
{
public:
    Graphics() { TavKitInit(); }
    ~Graphics() { TavKitShutdown(); }
    Graphics(const Graphics&) = delete;
    Graphics& operator=(const Graphics&) = delete;
};

void PrintHead()
{
    std::printf("%-24s %12s %12s %12s %8s %8s\n", "task", "n", "ours_ms", "reference_ms", "ratio", "target");
    std::fflush(stdout);
}

void Print(const bench::Row& row)
{
    std::printf("%-24s %12lld %12.3f %12.3f %8.3f %8s%s\n", row.task.c_str(), row.n, row.ours, row.reference,
                row.Ratio(), bench::TargetText(row).c_str(), row.MeetsTarget() ? "" : "  missed");
    std::fflush(stdout);
}

/// @return false if the file couldn't be written whole.
bool WriteTable(const std::string& path, const std::vector<bench::Row>& rows)
{
    const std::string text = bench::TableText(rows);
    std::FILE* const file = std::fopen(path.c_str(), "wb");
    if (file == nullptr)
    {
        return false;
    }
    const bool written = std::fwrite(text.data(), 1, text.size(), file) == text.size();
    return std::fclose(file) == 0 && written;
}

/// The tasks that the arguments name, all for none.
/// @return false, and a sentence on the screen, if one is unknown.
bool Choose(int argc, char** argv, std::vector<bench::Task>& chosen)
{
    const std::vector<bench::Task> tasks = bench::Tasks();
    if (argc < 2)
    {
        chosen = tasks;
        return true;
    }
    for (int i = 1; i < argc; ++i)
    {
        const std::string name = argv[i];
        const auto found =
            std::find_if(tasks.begin(), tasks.end(), [&](const auto& task) { return task.name == name; });
        if (found == tasks.end())
        {
            std::printf("There is no task \"%s\". The tasks are:", name.c_str());
            for (const bench::Task& task : tasks)
            {
                std::printf(" %s", task.name);
            }
            std::printf("\n");
            return false;
        }
        chosen.push_back(*found);
    }
    return true;
}

int RunTasks(const std::vector<bench::Task>& tasks)
{
    PrintHead();
    std::vector<bench::Row> rows;
    int code = 0;
    for (const bench::Task& task : tasks)
    {
        try
        {
            for (const bench::Row& row : task.run())
            {
                Print(row);
                rows.push_back(row);
            }
        }
        catch (const std::exception& error)
        {
            std::printf("%s FAILED: %s\n", task.name, error.what());
            code = kFailed;
        }
    }
    const char* const folder = std::getenv(kOutFolderVariable);
    const std::string path = (folder != nullptr ? std::string(folder) + '\\' : std::string()) + kTableFile;
    if (!WriteTable(path, rows))
    {
        std::printf("%s can't be written.\n", path.c_str());
        code = kFailed;
    }
    return code;
}

} // namespace

int main(int argc, char** argv)
{
    if (!AfxWinInit(::GetModuleHandleA(nullptr), nullptr, ::GetCommandLineA(), SW_SHOWNORMAL) || !AfxOleInit())
    {
        std::printf("The framework did not start.\n");
        return automation::Finish(kFailed);
    }
    int code = kFailed;
    {
        const Graphics graphics;
        std::vector<bench::Task> tasks;
        constexpr int kPeakArguments = 5;
        if (argc == kPeakArguments && std::string(argv[1]) == "--peak")
        {
            code = bench::RunPeak(argv[2], argv[3], argv[4]);
        }
        else if (Choose(argc, argv, tasks))
        {
            code = RunTasks(tasks);
        }
    }
    AfxWinTerm();
    return automation::Finish(code);
}
