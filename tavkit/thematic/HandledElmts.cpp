#include "tavkit/thematic/HandledElmts.h"

// Not inline: seen at once with its callers, GCC 12 takes the list's pointer to what stands on the stack for a mistake.

TmtcListCtrl::Handled::Handled(TmtcListCtrl& list, Elmt* first, Elmt* second)
    : m_list(list), m_life(list.m_life), m_first(first), m_second(second), m_outer(list.m_pHandled)
{
    list.m_pHandled = this;
}

TmtcListCtrl::Handled::~Handled()
{
    if (!m_life.IsGone())
    {
        m_list.m_pHandled = m_outer;
    }
}
