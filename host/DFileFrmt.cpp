// DFileFrmt.cpp
#include "tavkit/frame/services/DFileFrmt.h"

#include <cstring>

DFileFrmt::DFileFrmt(char const* id, char const* name, char const* pattern)
    : m_strId(id), m_strName(name), m_strPattern(pattern)
{
}
DFileFrmt::DFileFrmt(DFileFrmt const& other) = default;
DFileFrmt& DFileFrmt::operator=(DFileFrmt const& other) = default;
DFileFrmt::~DFileFrmt() = default;

void DFileFrmt::GetFilter(char* filter) const
{
    if (filter)
    {
        std::strcat(filter, m_strName.c_str());
        std::strcat(filter, "|");
        std::strcat(filter, m_strPattern.c_str());
        std::strcat(filter, "|");
    }
}
