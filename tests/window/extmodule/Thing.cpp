// Thing.cpp - a class that a test module adds; in a file of its own, whose constructors have no order to the entry's
#include <afx.h>

#if defined(EXT_MODULE_A)
#    define CExtThing CExtThingA
#elif defined(EXT_MODULE_B)
#    define CExtThing CExtThingB
#else
#    define CExtThing CExtThingC
#endif

class CExtThing : public CObject
{
    DECLARE_DYNCREATE(CExtThing)
};

#define IMPLEMENT_EXPANDED(name) IMPLEMENT_DYNCREATE(name, CObject)
IMPLEMENT_EXPANDED(CExtThing)
