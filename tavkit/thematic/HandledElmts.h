// HandledElmts.h - the elements that a hook of the thematic list is called for, which the hook may delete
#pragma once

#include "tavkit/thematic/TmtcElmt.h"

/// Stands on the stack around a call to a hook.
class TmtcListCtrl::Handled
{
public:
    /// Either element may be null.
    Handled(TmtcListCtrl& list, Elmt* first, Elmt* second);
    ~Handled();
    Handled(Handled const&) = delete;
    Handled& operator=(Handled const&) = delete;

    /// The object was destroyed.
    [[nodiscard]] bool IsListGone() const { return m_life.IsGone(); }
    /// The elements; null if there was none, or it is gone.
    [[nodiscard]] Elmt* First() const { return m_first.Get(); }
    [[nodiscard]] Elmt* Second() const { return m_second.Get(); }
    [[nodiscard]] bool HasLost(Elmt const* element) const
    {
        return m_first.HasLost(element) || m_second.HasLost(element);
    }
    /// The hook around this one.
    [[nodiscard]] Handled const* Outer() const { return m_outer; }

private:
    TmtcListCtrl& m_list;
    LifeWatch m_life;
    LifePtr<Elmt> m_first;
    LifePtr<Elmt> m_second;
    Handled* m_outer;
};
