// WindowTest.h - fixture of all tests with windows: real input, a picture on failure, nothing left behind
#pragma once

#include "Input.h"
#include "Leaks.h"
#include "Modal.h"
#include "Pump.h"
#include "Screen.h"

#include <afxwin.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace support
{
/// A test that derives from it
/// - fails when it leaves more windows or GDI objects behind than it found (what the system itself keeps after its
///   first use is warmed up once per process),
/// - leaves a picture of the screen in the output folder when it fails,
/// - starts with the mouse in the screen's far corner and no key or button down.
class WindowTest : public testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    /// Call at the end of a test whose subject loads something for the life of the process on first use (a cursor, a
    /// cached font), and say which in the reason. More than a first use keeps still fails,
    /// and so does a window.
    void AllowGdiGrowth(const char* reason);

private:
    SystemCounts m_before;
    bool m_allowGdiGrowth = false;
};

/// A plain top-level window of the framework, shown and active, that a test puts its controls into.
class TestFrame : public CWnd
{
public:
    explicit TestFrame(int width = 600, int height = 400);
    ~TestFrame() override;

    /// One message that the frame got; control notifications too.
    struct Message
    {
        UINT message;
        WPARAM wParam;
        LPARAM lParam;
        UINT notifyCode; ///< NMHDR::code of a WM_NOTIFY, else 0
    };

    /// Everything since the last Clear, in order.
    [[nodiscard]] const std::vector<Message>& Messages() const { return m_messages; }
    void Clear() { m_messages.clear(); }
    /// Number of messages with that number.
    [[nodiscard]] int Count(UINT message) const;
    /// Number of WM_COMMAND notifications with that code from that control.
    [[nodiscard]] int CountCommand(int id, UINT code) const;
    /// Number of WM_NOTIFY messages with that code.
    [[nodiscard]] int CountNotify(UINT code) const;

protected:
    LRESULT WindowProc(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    std::vector<Message> m_messages;
};
} // namespace support
