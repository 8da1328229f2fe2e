// afx.h - ground of the framework: assertions, run-time classes, the root object, exceptions, the string
#pragma once

#include "afxdefs.h"
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstring>

#define AFXAPI __stdcall
#define AFX_CDECL __cdecl
#define afx_msg       // marks message handlers for the reader
#define DEBUG_NEW new // allocations aren't tagged with file and line

class CObject;

/// Tells the programmer of a broken precondition (debugger output and standard error), then ends the program.
TAVAFX_API void AFX_CDECL AfxAssertFailedLine(LPCSTR lpszFileName, int nLine);
/// Writes a formatted line to the debugger's output; the line is cut at 1023 characters.
[[gnu::format(gnu_printf, 1, 2)]] TAVAFX_API void AFX_CDECL AfxTrace(LPCSTR lpszFormat, ...);

#ifdef NDEBUG
#    define ASSERT(expression) (static_cast<void>(0))
#    define VERIFY(expression) (static_cast<void>(expression))
#    define TRACE(...) (static_cast<void>(0))
#else
#    define ASSERT(expression) ((expression) ? static_cast<void>(0) : AfxAssertFailedLine(__FILE__, __LINE__))
#    define VERIFY(expression) ASSERT(expression)
#    define TRACE(...) AfxTrace(__VA_ARGS__)
#endif
#define ASSERT_VALID(object) ASSERT((object) != nullptr)

/// Run-time description of one class derived from CObject; one static record for each class.
struct TAVAFX_API CRuntimeClass
{
    LPCSTR m_lpszClassName;
    int m_nObjectSize;                           ///< bytes of one object
    UINT m_wSchema;                              ///< always AFX_NO_SCHEMA: objects aren't stored
    CObject*(PASCAL* m_pfnCreateObject)();       ///< null unless the class is dynamically creatable
    CRuntimeClass*(PASCAL* m_pfnGetBaseClass)(); ///< null for CObject alone
    CRuntimeClass* m_pNextClass;                 ///< next record in the list of the module that registered it

    /// Makes an object with its default constructor; the caller owns it.
    /// @return null when the class isn't dynamically creatable or memory is short.
    CObject* CreateObject() const;
    /// True for the class itself and for each of its bases; false for null.
    BOOL IsDerivedFrom(const CRuntimeClass* pBaseClass) const;

    /// Finds a registered class by name: the application's classes first, then those of the extension modules.
    /// @return null for an unknown name or null.
    static CRuntimeClass* PASCAL FromName(LPCSTR lpszClassName);
    /// FromName and CreateObject in one; null when either fails.
    static CObject* PASCAL CreateObject(LPCSTR lpszClassName);
};

inline constexpr UINT AFX_NO_SCHEMA = 0xFFFF;

/// Enters a class in the list of the current module state; one static object stands beside each class record.
struct TAVAFX_API AFX_CLASSINIT
{
    explicit AFX_CLASSINIT(CRuntimeClass* pNewClass);
};

/// Root of the framework's classes: run-time class information, not copyable.
class TAVAFX_API CObject
{
public:
    virtual CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject();

    /// True when the object is of the class or of one derived from it.
    BOOL IsKindOf(const CRuntimeClass* pClass) const;
    static CRuntimeClass* PASCAL GetThisClass();

    CObject(const CObject&) = delete;
    void operator=(const CObject&) = delete;

    void* operator new(size_t nSize);
    void* operator new(size_t nSize, void* place) noexcept;
    void operator delete(void* p) noexcept;
    void operator delete(void* p, void* place) noexcept;

protected:
    CObject();

private:
    static CRuntimeClass s_runtimeClass;
};

#define RUNTIME_CLASS(class_name) (class_name::GetThisClass())

#define DECLARE_DYNAMIC(class_name)                                                                                    \
public:                                                                                                                \
    static CRuntimeClass* PASCAL GetThisClass();                                                                       \
    CRuntimeClass* GetRuntimeClass() const override;                                                                   \
                                                                                                                       \
protected:                                                                                                             \
    static CRuntimeClass* PASCAL GetBaseClassLink();                                                                   \
                                                                                                                       \
private:                                                                                                               \
    static CRuntimeClass s_runtimeClass;                                                                               \
                                                                                                                       \
public:

#define DECLARE_DYNCREATE(class_name)                                                                                  \
    DECLARE_DYNAMIC(class_name)                                                                                        \
    static CObject* PASCAL CreateObject();

// The base is reached by function, not by address, so that the record needs no code at load even when the base lies
// in another module.
#define AFX_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, creator)                                               \
    CRuntimeClass* PASCAL class_name::GetBaseClassLink() { return RUNTIME_CLASS(base_class_name); }                    \
    CRuntimeClass class_name::s_runtimeClass = {                                                                       \
        #class_name, sizeof(class_name), AFX_NO_SCHEMA, creator, &class_name::GetBaseClassLink, nullptr};              \
    CRuntimeClass* PASCAL class_name::GetThisClass() { return &s_runtimeClass; }                                       \
    CRuntimeClass* class_name::GetRuntimeClass() const { return &s_runtimeClass; }                                     \
    static const AFX_CLASSINIT afxClassInit_##class_name(RUNTIME_CLASS(class_name));

#define IMPLEMENT_DYNAMIC(class_name, base_class_name) AFX_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, nullptr)

#define IMPLEMENT_DYNCREATE(class_name, base_class_name)                                                               \
    CObject* PASCAL class_name::CreateObject() { return new class_name; }                                              \
    AFX_IMPLEMENT_RUNTIMECLASS(class_name, base_class_name, &class_name::CreateObject)

/// The object itself when it is of the class, else null. Behind DYNAMIC_DOWNCAST.
TAVAFX_API CObject* AFXAPI AfxDynamicDownCast(CRuntimeClass* pClass, CObject* pObject);
/// The object itself; asserts that it is null or of the class. Behind STATIC_DOWNCAST.
TAVAFX_API CObject* AFXAPI AfxStaticDownCast(CRuntimeClass* pClass, CObject* pObject);

#define DYNAMIC_DOWNCAST(class_name, object)                                                                           \
    (static_cast<class_name*>(AfxDynamicDownCast(RUNTIME_CLASS(class_name), object)))
#define STATIC_DOWNCAST(class_name, object)                                                                            \
    (static_cast<class_name*>(AfxStaticDownCast(RUNTIME_CLASS(class_name), object)))

#include "afxstr.h"
#include "afxexcept.h"
