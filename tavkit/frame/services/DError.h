// DError.h - carries the cause of a failed operation to its caller
#pragma once

#include "tavkit/frame/services/DString.h"

/// Holder of the first error of an operation. Its text is for logs and tests: it is never shown to the user.
class TAVHOST_API DError
{
public:
    DError();
    DError(DError const&) = delete;
    DError& operator=(DError const&) = delete;
    ~DError();

    /// Forgets the error.
    void ClearError();
    /// Keeps @p text as the error unless an earlier one is held: the first cause is the one that explains.
    void SetError(char const* text);
    [[nodiscard]] bool HasError() const;
    /// The text of the error, "" without one.
    [[nodiscard]] DString GetErrorText() const;

private:
    bool m_bError = false;
    DString m_strText;
};
