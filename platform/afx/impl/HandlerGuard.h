// HandlerGuard.h - the one place where exceptions of handlers end
#pragma once

#include <afxexcept.h>

#include <exception>

/// Tells the thread object (or, without one, the plain rules of CWinThread) about an exception of a handler.
/// @return the answer to the message.
LRESULT AfxProcessHandlerException(CException* e, const MSG& msg);

/// The same for what isn't one of the framework's own exceptions.
LRESULT AfxProcessForeignException(const char* what, const MSG& msg);

/// Runs a handler on behalf of the system, whose frames no exception may cross.
template <typename TCall>
LRESULT AfxGuardHandler(const MSG& msg, TCall&& call)
{
    try
    {
        return call();
    }
    catch (CException* e)
    {
        const LRESULT result = AfxProcessHandlerException(e, msg);
        e->Delete();
        return result;
    }
    catch (const std::exception& e)
    {
        return AfxProcessForeignException(e.what(), msg);
    }
    catch (...)
    {
        return AfxProcessForeignException("An error of an unknown kind occurred.", msg);
    }
}
