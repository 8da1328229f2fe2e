// Report.h - tells the user what went wrong
#pragma once

#include "tavkit/frame/services/DString.h"

/// Notification of the user. By default a message box owned by the main window; a host or a test puts a receiver of its
/// own in place for as long as a ReceiverScope lives.
class TAVHOST_API Report
{
public:
    /// What kind of message is reported.
    enum class Kind
    {
        Warning,     ///< something didn't work
        Notification ///< a notice that the user can't turn off
    };

    /// Takes the reports instead of the message box.
    class TAVHOST_API Receiver
    {
    public:
        Receiver() = default;
        Receiver(Receiver const&) = delete;
        Receiver& operator=(Receiver const&) = delete;
        virtual ~Receiver();
        /// Called once for every report, on the thread that reports. @p text is never null.
        virtual void OnReport(Kind kind, char const* text) = 0;
    };

    /// Puts a receiver in place until the end of the block; the one before then takes over again.
    class TAVHOST_API ReceiverScope
    {
    public:
        /// @param receiver  must outlive the scope.
        explicit ReceiverScope(Receiver& receiver);
        ReceiverScope(ReceiverScope const&) = delete;
        ReceiverScope& operator=(ReceiverScope const&) = delete;
        ~ReceiverScope();

    private:
        Receiver* m_pBefore;
    };

    /// Shows a warning, printed by @p format as sprintf prints, and returns when the user has closed it.
    TAVHOST_PRINTF(1, 2) static void UserWarning(char const* format, ...);
    /// Shows a notice that the user can't turn off, and returns when it is closed.
    TAVHOST_PRINTF(1, 2) static void UserNotificationEnforced(char const* format, ...);

    Report() = delete;
};
