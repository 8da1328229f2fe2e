// FuzzMain.cpp - drives a fuzzer where libFuzzer isn't to be had: mutates the corpus, the same way for the same seed
//
//   PROGRAM [-runs=N] [-seed=N] [-max_len=N] [CORPUS_FOLDER_OR_FILE...]
//
// TAVKIT_FUZZ_RUNS sets the number of runs of a program that is started without -runs, TAVKIT_FUZZ_SECONDS how long it
// runs otherwise. Every input of the corpus is tried first. An input that crashes is saved as crash-PROGRAM.bin in the
// current folder.
#include <algorithm>
#include <chrono>
#include <limits>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#ifdef _WIN32
#    include <windows.h>
#endif

#include "automation/FinishedMark.h"

extern "C" int LLVMFuzzerTestOneInput(std::uint8_t const* data, std::size_t size);

namespace
{
using Bytes = std::vector<std::uint8_t>;

constexpr std::uint64_t kDefaultRuns = 2000;
constexpr std::uint64_t kDefaultSeed = 20240229;
constexpr std::size_t kDefaultMaxLength = 16384;
constexpr int kMaxMutations = 6; ///< of one input
constexpr int kCrashed = 99;     ///< exit code

Bytes g_input; ///< the input that is being tried, for the crash handler
std::string g_crashFile;

void SaveInput() noexcept
{
    if (std::FILE* const file = std::fopen(g_crashFile.c_str(), "wb"))
    {
        std::fwrite(g_input.data(), 1, g_input.size(), file);
        std::fclose(file);
    }
    std::printf("Crash: the input of %zu bytes is saved as %s\n", g_input.size(), g_crashFile.c_str());
    automation::Finish(kCrashed);
}

[[noreturn]] void Die() noexcept
{
    SaveInput();
    std::_Exit(kCrashed);
}

#ifdef _WIN32
LONG WINAPI OnCrash(EXCEPTION_POINTERS* crash)
{
    std::printf("Exception %08lx\n", crash->ExceptionRecord->ExceptionCode);
    SaveInput();
    ::TerminateProcess(::GetCurrentProcess(), kCrashed);
    return EXCEPTION_EXECUTE_HANDLER;
}
#endif

void Try(Bytes input)
{
    g_input = std::move(input);
    LLVMFuzzerTestOneInput(g_input.data(), g_input.size());
}

/// Changes inputs at random, by the steps that find most: bits, bytes, blocks and pieces of other inputs.
class Mutator
{
public:
    Mutator(std::uint64_t seed, std::vector<Bytes> const& corpus, std::size_t maxLength)
        : m_random(seed), m_corpus(corpus), m_maxLength(maxLength)
    {
    }

    Bytes Next()
    {
        Bytes input = m_corpus[Below(m_corpus.size())];
        for (std::size_t step = 1 + Below(kMaxMutations); step > 0; --step)
        {
            Mutate(input);
        }
        input.resize(std::min(input.size(), m_maxLength));
        return input;
    }

private:
    std::size_t Below(std::size_t end) { return end == 0 ? 0 : static_cast<std::size_t>(m_random() % end); }
    Bytes::iterator Place(Bytes& input) { return input.begin() + static_cast<std::ptrdiff_t>(Below(input.size() + 1)); }

    void Mutate(Bytes& input)
    {
        enum Step
        {
            flipBit,
            setByte,
            insertByte,
            erase,
            repeat,
            splice,
            cut,
            numSteps
        };
        const std::size_t step = Below(numSteps);
        if (input.empty() || step == insertByte)
        {
            input.insert(Place(input), static_cast<std::uint8_t>(m_random()));
        }
        else if (step == flipBit)
        {
            input[Below(input.size())] ^= static_cast<std::uint8_t>(1u << Below(8));
        }
        else if (step == setByte)
        {
            constexpr std::uint8_t kTelling[] = {0x00, 0x01, 0x7F, 0x80, 0xFF, '<', '>', '&', '"', ';', '%', '\\'};
            input[Below(input.size())] = kTelling[Below(std::size(kTelling))];
        }
        else if (step == cut)
        {
            input.resize(Below(input.size()));
        }
        else
        {
            Bytes const& other = step == splice ? m_corpus[Below(m_corpus.size())] : input;
            const std::size_t start = Below(other.size());
            const Bytes piece(other.begin() + static_cast<std::ptrdiff_t>(start),
                              other.begin() + static_cast<std::ptrdiff_t>(start + Below(other.size() - start + 1)));
            if (step == erase)
            {
                input.erase(input.begin() + static_cast<std::ptrdiff_t>(start),
                            input.begin() + static_cast<std::ptrdiff_t>(start + piece.size()));
            }
            else
            {
                input.insert(Place(input), piece.begin(), piece.end());
            }
        }
    }

    std::mt19937_64 m_random;
    std::vector<Bytes> const& m_corpus;
    std::size_t m_maxLength;
};

void ReadCorpus(std::filesystem::path const& path, std::vector<Bytes>& corpus)
{
    std::vector<std::filesystem::path> files;
    if (std::filesystem::is_directory(path))
    {
        for (auto const& entry : std::filesystem::directory_iterator(path))
        {
            files.push_back(entry.path());
        }
        std::ranges::sort(files); // the order of a folder differs from system to system
    }
    else
    {
        files.push_back(path);
    }
    for (auto const& file : files)
    {
        std::ifstream stream(file, std::ios::binary);
        corpus.emplace_back(std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>());
    }
}

std::uint64_t NumberOf(std::string_view argument)
{
    return std::strtoull(std::string(argument.substr(argument.find('=') + 1)).c_str(), nullptr, 10);
}
} // namespace

int main(int argc, char** argv)
{
    char const* const wanted = std::getenv("TAVKIT_FUZZ_RUNS");
    char const* const wantedSeconds = std::getenv("TAVKIT_FUZZ_SECONDS");
    constexpr std::uint64_t kUntilTheTimeIsUp = std::numeric_limits<std::uint64_t>::max();
    std::uint64_t runs = wanted ? std::strtoull(wanted, nullptr, 10) : wantedSeconds ? kUntilTheTimeIsUp : kDefaultRuns;
    std::uint64_t seed = kDefaultSeed;
    std::size_t maxLength = kDefaultMaxLength;
    std::vector<Bytes> corpus;
    for (int i = 1; i < argc; ++i)
    {
        const std::string_view argument = argv[i];
        if (argument.starts_with("-runs="))
        {
            runs = NumberOf(argument);
        }
        else if (argument.starts_with("-seed="))
        {
            seed = NumberOf(argument);
        }
        else if (argument.starts_with("-max_len="))
        {
            maxLength = static_cast<std::size_t>(NumberOf(argument));
        }
        else if (std::filesystem::exists(argument))
        {
            ReadCorpus(argument, corpus);
        }
        else
        {
            std::printf("No such corpus: %s\n", argv[i]);
            return automation::Finish(1);
        }
    }
    g_crashFile = "crash-" + std::filesystem::path(argv[0]).stem().string() + ".bin";
    std::set_terminate(Die);
    std::signal(SIGABRT, [](int) { Die(); });
#ifdef _WIN32
    ::SetUnhandledExceptionFilter(OnCrash);
#endif

    std::printf("%zu inputs in the corpus, seed %llu\n", corpus.size(), static_cast<unsigned long long>(seed));
    for (Bytes const& input : corpus)
    {
        Try(input);
    }
    if (corpus.empty())
    {
        corpus.emplace_back();
    }
    Mutator mutator(seed, corpus, maxLength);
    const auto end = std::chrono::steady_clock::now() +
                     std::chrono::seconds(runs == kUntilTheTimeIsUp ? std::strtoull(wantedSeconds, nullptr, 10) : 0);
    std::uint64_t run = 0;
    for (; run < runs && (runs != kUntilTheTimeIsUp || std::chrono::steady_clock::now() < end); ++run)
    {
        Try(mutator.Next());
    }
    std::printf("%llu runs done.\n", static_cast<unsigned long long>(run));
    return automation::Finish(0);
}
