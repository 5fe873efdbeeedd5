#include "rtl/TInterfacedObject.h"

#include <gtest/gtest.h>

namespace {

class IAnimal : public IInterface {
public:
    static constexpr TGUID IID = Guid("{11111111-2222-3333-4444-555555555555}");
    virtual int Legs() = 0;
};

class IDog : public IAnimal {
public:
    using Parent = IAnimal;
    static constexpr TGUID IID = Guid("{11111111-2222-3333-4444-666666666666}");
};

class INamed : public IInterface {
public:
    static constexpr TGUID IID = Guid("{11111111-2222-3333-4444-777777777777}");
};

class Dog : public Implements<TInterfacedObject, IDog, INamed> {
public:
    explicit Dog(bool* gone = nullptr)
        : FGone(gone)
    {
        const InterfacePtr<IDog> handedOut(this);
    }
    ~Dog() override
    {
        if (FGone)
            *FGone = true;
    }
    int Legs() override { return 4; }

private:
    bool* FGone;
};

}

TEST(InterfacePtr, CastsBetweenTheInterfacesOfOneObjectAndBack)
{
    const InterfacePtr<IDog> dog = New<Dog>();
    const auto named = InterfaceCast<INamed>(dog);
    ASSERT_TRUE(named);
    EXPECT_EQ(InterfaceCast<IDog>(named).get(), dog.get());
}

TEST(InterfacePtr, AnswersToTheInterfaceThatAnInterfaceDerivesFrom)
{
    const InterfacePtr<IDog> dog = New<Dog>();
    EXPECT_EQ(InterfaceCast<IAnimal>(dog)->Legs(), 4);
}

TEST(InterfacePtr, FreesTheObjectWithItsLastReference)
{
    bool gone = false;
    InterfacePtr<IDog> dog = New<Dog>(&gone);
    auto second = dog;
    dog.Clear();
    EXPECT_FALSE(gone);
    second.Clear();
    EXPECT_TRUE(gone);
}

InterfacePtr<IDog> GHeld;

class LastWords : public Dog {
public:
    explicit LastWords(bool* sawNil)
        : FSawNil(sawNil)
    {
    }
    ~LastWords() override { *FSawNil = !GHeld; }

private:
    bool* FSawNil;
};

TEST(InterfacePtr, IsNilBeforeTheObjectBehindItGoes)
{
    bool sawNil = false;
    GHeld = New<LastWords>(&sawNil);
    GHeld.Clear();
    EXPECT_TRUE(sawNil);
}

class IOther : public IInterface {
public:
    static constexpr TGUID IID = Guid("{11111111-2222-3333-4444-888888888888}");
};

TEST(InterfacePtr, GivesNilForAnInterfaceThatTheObjectLacks)
{
    const InterfacePtr<IDog> dog = New<Dog>();
    EXPECT_FALSE(InterfaceCast<IOther>(dog));
}
