// afxcoll.h - the collections of fixed types
#pragma once

#include "afxtempl.h"

class CDWordArray : public CArray<DWORD, DWORD>
{
};

/// Borrows what its elements point to.
class CPtrArray : public CArray<void*, void*>
{
};

class CStringArray : public CArray<CString, LPCTSTR>
{
};

/// Borrows what its elements point to.
class CPtrList : public CList<void*, void*>
{
public:
    using CList::CList;
};

/// Borrows its objects.
class CObList : public CList<CObject*, CObject*>
{
public:
    using CList::CList;
};
