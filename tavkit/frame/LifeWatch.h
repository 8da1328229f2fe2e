// LifeWatch.h - lets an operation notice that its own object was destroyed by something that it called
#pragma once

class LifeWatch;

/// What an object holds so that it can be watched. Copies watch nothing of the original.
class LifeToken
{
public:
    LifeToken() noexcept = default;
    LifeToken(LifeToken const&) noexcept {}
    LifeToken& operator=(LifeToken const&) noexcept { return *this; }
    inline ~LifeToken();

private:
    friend class LifeWatch;
    LifeWatch* m_first = nullptr; ///< the watch begun last, and through it the others
};

/// Stands on the stack of an operation that calls out: hooks, notifications, a host's reader. All watches of one object
/// notice its end, in whatever order they themselves end. One thread.
/// @code
/// const LifeWatch watch(m_life);
/// OnValue(...);
/// if (watch.IsGone()) { return; } // no member may be touched
/// @endcode
class LifeWatch
{
public:
    // Not inlined: the compiler would take the watch, which unlinks itself, for a dangling pointer.
    [[gnu::noinline]] explicit LifeWatch(LifeToken& token) noexcept : m_token(&token), m_outer(token.m_first)
    {
        token.m_first = this;
    }
    LifeWatch(LifeWatch const&) = delete;
    LifeWatch& operator=(LifeWatch const&) = delete;
    ~LifeWatch()
    {
        if (m_token)
        {
            LifeWatch** at = &m_token->m_first; // nearly always this very watch
            while (*at != this)
            {
                at = &(*at)->m_outer;
            }
            *at = m_outer;
        }
    }

    /// True once the watched object's destructor has run.
    [[nodiscard]] bool IsGone() const noexcept { return !m_token; }

private:
    friend class LifeToken;
    LifeToken* m_token;
    LifeWatch* m_outer;
};

LifeToken::~LifeToken()
{
    for (LifeWatch* watch = m_first; watch; watch = watch->m_outer)
    {
        watch->m_token = nullptr;
    }
}
