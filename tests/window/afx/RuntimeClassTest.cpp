// RuntimeClassTest.cpp - run-time class information
#include <afx.h>
#include <gmock/gmock.h>

#include <memory>
#include <new>
#include <type_traits>

namespace
{
class CAnimal : public CObject
{
    DECLARE_DYNAMIC(CAnimal)
};

class CDog : public CAnimal
{
    DECLARE_DYNCREATE(CDog)
public:
    int m_nLegs = 4;
};

class CCat : public CAnimal
{
    DECLARE_DYNCREATE(CCat)
};

class CHungryBeast : public CObject
{
    DECLARE_DYNCREATE(CHungryBeast)
public:
    CHungryBeast() { throw std::bad_alloc(); }
};

class CWithoutRecord : public CDog
{
};

IMPLEMENT_DYNAMIC(CAnimal, CObject)
IMPLEMENT_DYNCREATE(CDog, CAnimal)
IMPLEMENT_DYNCREATE(CCat, CAnimal)
IMPLEMENT_DYNCREATE(CHungryBeast, CObject)
} // namespace

TEST(RuntimeClass, TellsNameAndSize)
{
    const CRuntimeClass* dog = RUNTIME_CLASS(CDog);
    EXPECT_STREQ(dog->m_lpszClassName, "CDog");
    EXPECT_EQ(dog->m_nObjectSize, static_cast<int>(sizeof(CDog)));
    EXPECT_EQ(dog->m_wSchema, AFX_NO_SCHEMA);
}

TEST(RuntimeClass, IsTheSameThroughAnObjectSeenAsItsRoot)
{
    const std::unique_ptr<CObject> object = std::make_unique<CDog>();
    EXPECT_EQ(object->GetRuntimeClass(), RUNTIME_CLASS(CDog));
    EXPECT_EQ(CDog::GetThisClass(), RUNTIME_CLASS(CDog));
}

TEST(RuntimeClass, DerivesFromItselfAndItsBasesUpToTheRoot)
{
    EXPECT_TRUE(RUNTIME_CLASS(CDog)->IsDerivedFrom(RUNTIME_CLASS(CDog)));
    EXPECT_TRUE(RUNTIME_CLASS(CDog)->IsDerivedFrom(RUNTIME_CLASS(CAnimal)));
    EXPECT_TRUE(RUNTIME_CLASS(CDog)->IsDerivedFrom(RUNTIME_CLASS(CObject)));
    EXPECT_FALSE(RUNTIME_CLASS(CDog)->IsDerivedFrom(RUNTIME_CLASS(CCat)));
    EXPECT_FALSE(RUNTIME_CLASS(CAnimal)->IsDerivedFrom(RUNTIME_CLASS(CDog)));
    EXPECT_FALSE(RUNTIME_CLASS(CDog)->IsDerivedFrom(nullptr));
}

TEST(RuntimeClass, AClassWithoutARecordIsOfItsBasesKind)
{
    CWithoutRecord object;
    EXPECT_TRUE(object.IsKindOf(RUNTIME_CLASS(CDog)));
    EXPECT_STREQ(object.GetRuntimeClass()->m_lpszClassName, "CDog");
}

TEST(RuntimeClass, CreatesAnObjectWithItsDefaultConstructor)
{
    const std::unique_ptr<CObject> object(RUNTIME_CLASS(CDog)->CreateObject());
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(DYNAMIC_DOWNCAST(CDog, object.get())->m_nLegs, 4);
}

TEST(RuntimeClass, AClassThatIsntDynamicallyCreatableGivesNull)
{
    EXPECT_EQ(RUNTIME_CLASS(CAnimal)->CreateObject(), nullptr);
}

TEST(RuntimeClass, CreationWithoutMemoryGivesNull) { EXPECT_EQ(RUNTIME_CLASS(CHungryBeast)->CreateObject(), nullptr); }

TEST(RuntimeClass, IsFoundByItsName)
{
    EXPECT_EQ(CRuntimeClass::FromName("CCat"), RUNTIME_CLASS(CCat));
    EXPECT_EQ(CRuntimeClass::FromName("CNobody"), nullptr);
    EXPECT_EQ(CRuntimeClass::FromName(nullptr), nullptr);
    EXPECT_EQ(CRuntimeClass::CreateObject("CNobody"), nullptr);
    const std::unique_ptr<CObject> cat(CRuntimeClass::CreateObject("CCat"));
    ASSERT_NE(cat, nullptr);
    EXPECT_TRUE(cat->IsKindOf(RUNTIME_CLASS(CCat)));
}

TEST(DynamicDowncast, GivesTheObjectOnlyWhenItIsOfTheClass)
{
    CDog dog;
    CObject* object = &dog;
    EXPECT_EQ(DYNAMIC_DOWNCAST(CDog, object), &dog);
    EXPECT_EQ(DYNAMIC_DOWNCAST(CAnimal, object), &dog);
    EXPECT_EQ(DYNAMIC_DOWNCAST(CCat, object), nullptr);
    object = nullptr;
    EXPECT_EQ(DYNAMIC_DOWNCAST(CDog, object), nullptr);
}

TEST(StaticDowncast, GivesTheObjectOrNull)
{
    CDog dog;
    CObject* object = &dog;
    EXPECT_EQ(STATIC_DOWNCAST(CDog, object), &dog);
    object = nullptr;
    EXPECT_EQ(STATIC_DOWNCAST(CDog, object), nullptr);
}

TEST(RootObject, IsNotCopyable)
{
    EXPECT_FALSE(std::is_copy_constructible_v<CDog>);
    EXPECT_FALSE(std::is_copy_assignable_v<CDog>);
}

TEST(RootObject, CanBeConstructedInGivenMemory)
{
    alignas(CDog) unsigned char place[sizeof(CDog)];
    auto* dog = new (place) CDog;
    EXPECT_EQ(static_cast<void*>(dog), place);
    dog->~CDog();
}
