#include "WorkbenchFixture.h"

#include <chrono>
#include <cstring>
#include <fstream>

namespace e2e
{
namespace
{
constexpr char kAsideKey[] = "Software\\TavKit\\TavKit Workbench (put aside by the tests)";
constexpr DWORD kExitMs = 20'000;

/// Moves a key of the user's part of the registry with all that is in it. A key that isn't there leaves none.
void MoveKey(const char* from, const char* to)
{
    HKEY target = nullptr;
    HKEY source = nullptr;
    ::RegDeleteTreeA(HKEY_CURRENT_USER, to);
    if (::RegOpenKeyExA(HKEY_CURRENT_USER, from, 0, KEY_READ, &source) != ERROR_SUCCESS)
    {
        return;
    }
    ASSERT_EQ(::RegCreateKeyExA(HKEY_CURRENT_USER, to, 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &target, nullptr),
              ERROR_SUCCESS);
    const LSTATUS copied = ::RegCopyTreeA(source, nullptr, target);
    ::RegCloseKey(source);
    ::RegCloseKey(target);
    ASSERT_EQ(copied, ERROR_SUCCESS);
    ::RegDeleteTreeA(HKEY_CURRENT_USER, from);
}

bool IsKey(const char* name)
{
    HKEY key = nullptr;
    const bool there = ::RegOpenKeyExA(HKEY_CURRENT_USER, name, 0, KEY_READ, &key) == ERROR_SUCCESS;
    if (there)
    {
        ::RegCloseKey(key);
    }
    return there;
}

template <typename T>
void Append(std::string& bytes, T value)
{
    char raw[sizeof value];
    std::memcpy(raw, &value, sizeof value);
    bytes.append(raw, sizeof value);
}
} // namespace

void WorkbenchTest::SetUp()
{
    WindowTest::SetUp();
    if (!IsKey(kAsideKey)) // or else they are there since a run that was killed
    {
        MoveKey(kProfileKey, kAsideKey);
    }
    ::RegDeleteTreeA(HKEY_CURRENT_USER, kProfileKey);
    m_folder = std::filesystem::temp_directory_path() /
               (std::string("workbench-") + testing::UnitTest::GetInstance()->current_test_info()->name());
    std::filesystem::remove_all(m_folder);
    std::filesystem::create_directories(m_folder);
}

void WorkbenchTest::TearDown()
{
    if (HasFailure() && m_workbench)
    {
        support::SaveScreenshot(support::OutputFolder() + "\\workbench-" +
                                testing::UnitTest::GetInstance()->current_test_info()->name() + ".png");
    }
    m_workbench.reset();
    std::error_code ignored; // a file that a killed program still holds stays behind
    std::filesystem::remove_all(m_folder, ignored);
    MoveKey(kAsideKey, kProfileKey);
    WindowTest::TearDown();
}

void WorkbenchTest::Start(const std::string& path)
{
    if (m_workbench)
    {
        ASSERT_EQ(CloseByKeys(), 0u);
    }
    m_workbench = std::make_unique<WorkbenchProcess>(Quoted(path));
    ASSERT_NE(m_workbench->Window(), nullptr) << "the main window didn't come";
    ASSERT_TRUE(support::PumpUntil([this] { return m_workbench->Focus() == m_workbench->List(); }));
}

std::optional<DWORD> WorkbenchTest::CloseByKeys()
{
    support::PressKey(VK_F4, {VK_MENU});
    return m_workbench->WaitForExit(kExitMs);
}

std::string WorkbenchTest::WriteFile(const std::string& name, const std::string& bytes) const
{
    const auto path = m_folder / name;
    std::ofstream(path, std::ios::binary) << bytes;
    return path.string();
}

std::string WorkbenchTest::WriteTwoColours(const std::string& name, int width, int height) const
{
    constexpr std::uint32_t kFileHeader = 14;
    constexpr std::uint32_t kInfoHeader = 40;
    const auto line = static_cast<std::uint32_t>((width * 3 + 3) / 4 * 4);
    const std::uint32_t size = line * static_cast<std::uint32_t>(height);
    std::string bytes = "BM";
    Append(bytes, kFileHeader + kInfoHeader + size);
    Append(bytes, std::uint32_t{0});
    Append(bytes, kFileHeader + kInfoHeader);
    Append(bytes, kInfoHeader);
    Append(bytes, std::int32_t{width});
    Append(bytes, std::int32_t{height});
    Append(bytes, std::uint16_t{1});
    Append(bytes, std::uint16_t{24});
    for (const std::uint32_t value : {std::uint32_t{BI_RGB}, size, 2835u, 2835u, 0u, 0u})
    {
        Append(bytes, value);
    }
    for (int y = 0; y < height; ++y)
    {
        std::string row;
        for (int x = 0; x < width; ++x)
        {
            row += x < width / 2 ? std::string("\0\0\xFF", 3) : std::string("\xFF\0\0", 3); // blue, green, red
        }
        row.resize(line, '\0');
        bytes += row;
    }
    return WriteFile(name, bytes);
}

bool WorkbenchTest::Shows(const std::string& text)
{
    return support::PumpUntil([&] {
        const std::string shown = Workbench().ViewText();
        return shown == text || shown.starts_with(text + ", ");
    });
}

bool WorkbenchTest::ViewHolds(const std::string& text)
{
    return support::PumpUntil([&] { return Workbench().ViewText().find(text) != std::string::npos; });
}

bool WorkbenchTest::ClickUntil(HWND window, const std::function<bool()>& taken)
{
    constexpr int kAttempts = 5;
    constexpr std::chrono::milliseconds kPatience{2000};
    for (int attempt = 0; attempt < kAttempts; ++attempt)
    {
        support::Click(window);
        if (support::PumpUntil(taken, kPatience))
        {
            return true;
        }
    }
    return false;
}

std::string Quoted(const std::filesystem::path& path)
{
    return std::string(1, '"').append(path.string()).append(1, '"');
}

std::string Samples() { return support::SamplePath("cell8.tif").substr(0, support::SamplePath("").size() - 1); }

SIZE ClientSize(HWND window)
{
    RECT rect{};
    ::GetClientRect(window, &rect);
    return {rect.right, rect.bottom};
}

RECT WindowRect(HWND window)
{
    RECT rect{};
    ::GetWindowRect(window, &rect);
    return rect;
}

bool Becomes(HWND window, int x, int y, COLORREF color)
{
    return support::PumpUntil([&] { return support::ScreenPixel(support::ScreenPoint(window, x, y)) == color; });
}

void DragCorner(const WorkbenchProcess& workbench, HWND window, int dx, int dy)
{
    const RECT before = WindowRect(window);
    const POINT from{before.right - 2, before.bottom - 2};
    support::MoveMouse(from);
    support::Press();
    ASSERT_TRUE(support::PumpUntil([&] { return workbench.IsInModalLoop(); }));
    support::MoveMouse({from.x + dx / 2, from.y + dy / 2});
    support::MoveMouse({from.x + dx, from.y + dy});
    support::Release();
    ASSERT_TRUE(support::PumpUntil([&] { return !workbench.IsInModalLoop(); }));
}

} // namespace e2e
