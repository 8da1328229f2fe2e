// IAttrData.cpp - what readers and writers of tables share
#include "tavkit/frame/services/IAttrData.h"

IAttrData::IAttrData() = default;
IAttrData::~IAttrData() = default;

ADIColType IAttrData::GetColType(int /*col*/, int /*nReserved*/) { return adiNone; }

bool IAttrData::AddCol(char const* name, ADIColType type) { return name && OnAddCol(name, type); }

bool IAttrData::OnAddCol(char const* /*name*/, ADIColType /*type*/) { return false; }
