#pragma once

#include "rtl/InterfacePtr.h"
#include "rtl/TObject.h"

namespace Rtl {

template <class I>
void* AnswerAs(I* self, void* answer, const TGUID& iid)
{
    if (iid == I::IID)
        return answer;
    if constexpr (requires { typename I::Parent; })
        return AnswerAs<typename I::Parent>(self, static_cast<typename I::Parent*>(self), iid);
    else
        return iid == IInterface::IID ? static_cast<IInterface*>(self) : nullptr;
}

// Looks iid up among the interfaces I..., each with its ancestors, in the order given.
template <class... I, class Self>
void* Answer(Self* self, const TGUID& iid)
{
    void* found = nullptr;
    ((found = found ? found : AnswerAs<I>(static_cast<I*>(self), static_cast<I*>(self), iid)), ...);
    return found;
}

}

// The base of objects that live as long as somebody holds an interface of them.
//
// The count is 1 while the constructor runs, so that a constructor may hand out `this`; New() takes that one back when
// it holds the object. Such objects are made by New() only.
class TInterfacedObject : public IInterface, public TObject {
public:
    void* QueryInterface(const TGUID& iid) override
    {
        return iid == IInterface::IID ? static_cast<IInterface*>(this) : nullptr;
    }
    int AddRef() override { return ++FRefCount; }
    int Release() override
    {
        const int count = --FRefCount;
        if (count == 0) {
            BeforeDestruction();
            delete this;
        }
        return count;
    }
    int RefCount() const { return FRefCount; }

    // Called once by New() when it holds the object: the reference of the construction ends.
    virtual void AfterConstruction() { --FRefCount; }
    // The last reference is gone; the count is raised so that a callback from the destructor cannot free it twice.
    virtual void BeforeDestruction() { FRefCount = 1 << 30; }

protected:
    TInterfacedObject() = default;
    ~TInterfacedObject() override = default;

private:
    int FRefCount = 1;
};

// A TInterfacedObject (or a class derived from it) that also answers to the interfaces I...:
//
//     class TEvents : public Implements<TInterfacedObject, IMrvEvents> { ... };
template <class Base, class... I>
class Implements : public Base, public I... {
public:
    using Base::Base;
    void* QueryInterface(const TGUID& iid) override
    {
        if (void* found = Rtl::Answer<I...>(this, iid))
            return found;
        return Base::QueryInterface(iid);
    }
    int AddRef() override { return Base::AddRef(); }
    int Release() override { return Base::Release(); }
};

// An object of the host that its maker owns: references to it are not counted and never free it. It answers to I....
template <class... I>
class Facade : public I... {
public:
    Facade() = default;
    Facade(const Facade&) = delete;
    Facade& operator=(const Facade&) = delete;
    virtual ~Facade() = default;
    void* QueryInterface(const TGUID& iid) override { return Rtl::Answer<I...>(this, iid); }
    int AddRef() override { return -1; }
    int Release() override { return -1; }
};

// Makes a counted object and holds it.
template <class T, class... Args>
InterfacePtr<T> New(Args&&... args)
{
    InterfacePtr<T> made(new T(std::forward<Args>(args)...));
    made->AfterConstruction();
    return made;
}
