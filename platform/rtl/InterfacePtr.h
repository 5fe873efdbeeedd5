#pragma once

#include "rtl/IInterface.h"

#include <cstddef>
#include <type_traits>
#include <utility>

// Holds one reference to an interface, or nil. The only way to hold a reference.
//
// Clearing sets the pointer to nil first and releases afterwards: an object that calls back while it goes finds nil
// and not itself.
template <class T>
class InterfacePtr {
public:
    InterfacePtr() = default;
    InterfacePtr(std::nullptr_t) { }
    InterfacePtr(T* object)
        : FObject(object)
    {
        if (FObject)
            FObject->AddRef();
    }
    InterfacePtr(const InterfacePtr& other)
        : InterfacePtr(other.FObject)
    {
    }
    InterfacePtr(InterfacePtr&& other) noexcept
        : FObject(std::exchange(other.FObject, nullptr))
    {
    }
    template <class U>
    requires std::is_convertible_v<U*, T*> InterfacePtr(const InterfacePtr<U>& other)
        : InterfacePtr(static_cast<T*>(other.get()))
    {
    }
    ~InterfacePtr() { Clear(); }

    InterfacePtr& operator=(InterfacePtr other) noexcept
    {
        T* old = std::exchange(FObject, std::exchange(other.FObject, nullptr));
        if (old)
            old->Release();
        return *this;
    }

    // Sets the pointer to nil, then releases what it held.
    void Clear()
    {
        if (T* old = std::exchange(FObject, nullptr))
            old->Release();
    }

    // Whether no other reference to the object is held.
    bool IsLast() const
    {
        if (!FObject)
            return false;
        FObject->AddRef();
        return FObject->Release() == 1;
    }

    // Sets the pointer to nil and leaves the reference uncounted; for the few places where that is the agreed way.
    void ClearWithoutRelease() { FObject = nullptr; }

    T* get() const { return FObject; }
    T* operator->() const { return FObject; }
    T& operator*() const { return *FObject; }
    explicit operator bool() const { return FObject != nullptr; }

    template <class U>
    friend bool operator==(const InterfacePtr& a, const InterfacePtr<U>& b)
    {
        return a.get() == b.get();
    }
    friend bool operator==(const InterfacePtr& a, const T* b) { return a.FObject == b; }
    friend bool operator==(const InterfacePtr& a, std::nullptr_t) { return a.FObject == nullptr; }

private:
    T* FObject = nullptr;
};

// The cast by identifier: the interface T of the object behind `from`, or nil when `from` is nil or does not have it.
template <class T, class From>
InterfacePtr<T> InterfaceCast(From* from)
{
    return from ? InterfacePtr<T>(static_cast<T*>(from->QueryInterface(T::IID))) : InterfacePtr<T>();
}

template <class T, class From>
InterfacePtr<T> InterfaceCast(const InterfacePtr<From>& from)
{
    return InterfaceCast<T>(from.get());
}
