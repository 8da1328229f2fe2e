// DError.cpp
#include "tavkit/frame/services/DError.h"

DError::DError() = default;
DError::~DError() = default;

void DError::ClearError()
{
    m_bError = false;
    m_strText = "";
}

void DError::SetError(char const* text)
{
    if (!m_bError)
    {
        m_bError = true;
        m_strText = text;
    }
}

bool DError::HasError() const { return m_bError; }

DString DError::GetErrorText() const { return m_strText; }
