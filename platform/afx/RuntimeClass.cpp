// RuntimeClass.cpp - run-time classes and the root object
#include "afx.h"
#include "afxdll_.h"
#include "afxstat.h"
#include <cstdlib>
#include <new>

namespace
{
constexpr size_t kTraceLength = 1024;

CRuntimeClass* FindInList(CRuntimeClass* pClass, LPCSTR lpszClassName) noexcept
{
    while (pClass != nullptr && std::strcmp(pClass->m_lpszClassName, lpszClassName) != 0)
    {
        pClass = pClass->m_pNextClass;
    }
    return pClass;
}
} // namespace

void AfxAssertFailedLine(LPCSTR lpszFileName, int nLine)
{
    AfxTrace("%s(%d): assertion failed\n", lpszFileName, nLine);
    std::fprintf(stderr, "%s(%d): assertion failed\n", lpszFileName, nLine);
    std::fflush(stderr);
    if (::IsDebuggerPresent())
    {
        ::DebugBreak();
    }
    std::abort();
}

void AfxTrace(LPCSTR lpszFormat, ...)
{
    char line[kTraceLength];
    va_list argList;
    va_start(argList, lpszFormat);
    std::vsnprintf(line, sizeof line, lpszFormat == nullptr ? "" : lpszFormat, argList);
    va_end(argList);
    ::OutputDebugStringA(line);
}

CObject* CRuntimeClass::CreateObject() const
{
    if (m_pfnCreateObject == nullptr)
    {
        TRACE("%s isn't dynamically creatable\n", m_lpszClassName);
        return nullptr;
    }
    try
    {
        return (*m_pfnCreateObject)();
    }
    catch (const std::bad_alloc&)
    {
        return nullptr;
    }
}

BOOL CRuntimeClass::IsDerivedFrom(const CRuntimeClass* pBaseClass) const
{
    const CRuntimeClass* pClass = this;
    while (pClass != nullptr && pClass != pBaseClass)
    {
        pClass = pClass->m_pfnGetBaseClass == nullptr ? nullptr : (*pClass->m_pfnGetBaseClass)();
    }
    return pClass != nullptr;
}

CRuntimeClass* CRuntimeClass::FromName(LPCSTR lpszClassName)
{
    if (lpszClassName == nullptr)
    {
        return nullptr;
    }
    const AFX_MODULE_STATE* pState = AfxGetModuleState();
    CRuntimeClass* pFound = FindInList(pState->m_pClassList, lpszClassName);
    for (CDynLinkLibrary* pDLL = pState->m_pLibraryList; pFound == nullptr && pDLL != nullptr; pDLL = pDLL->m_pNextDLL)
    {
        pFound = FindInList(pDLL->m_pClassList, lpszClassName);
    }
    return pFound;
}

CObject* CRuntimeClass::CreateObject(LPCSTR lpszClassName)
{
    const CRuntimeClass* pClass = FromName(lpszClassName);
    return pClass == nullptr ? nullptr : pClass->CreateObject();
}

AFX_CLASSINIT::AFX_CLASSINIT(CRuntimeClass* pNewClass)
{
    AFX_MODULE_STATE* pState = AfxGetModuleState();
    pNewClass->m_pNextClass = pState->m_pClassList;
    pState->m_pClassList = pNewClass;
}

CRuntimeClass CObject::s_runtimeClass = {"CObject", sizeof(CObject), AFX_NO_SCHEMA, nullptr, nullptr, nullptr};

CObject::CObject() = default;
CObject::~CObject() = default;
CRuntimeClass* CObject::GetThisClass() { return &s_runtimeClass; }
CRuntimeClass* CObject::GetRuntimeClass() const { return &s_runtimeClass; }

BOOL CObject::IsKindOf(const CRuntimeClass* pClass) const { return GetRuntimeClass()->IsDerivedFrom(pClass); }

void* CObject::operator new(size_t nSize) { return ::operator new(nSize); }
void* CObject::operator new(size_t, void* place) noexcept { return place; }
void CObject::operator delete(void* p) noexcept { ::operator delete(p); }
void CObject::operator delete(void*, void*) noexcept {}

CObject* AfxDynamicDownCast(CRuntimeClass* pClass, CObject* pObject)
{
    return pObject != nullptr && pObject->IsKindOf(pClass) ? pObject : nullptr;
}

CObject* AfxStaticDownCast([[maybe_unused]] CRuntimeClass* pClass, CObject* pObject)
{
    ASSERT(pObject == nullptr || pObject->IsKindOf(pClass));
    return pObject;
}
