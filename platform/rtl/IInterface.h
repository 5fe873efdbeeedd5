#pragma once

#include "rtl/Guid.h"

// The root of every reference-counted interface.
//
// An interface declares `static constexpr TGUID IID` and, unless it derives from IInterface directly,
// `using Parent = ITheInterfaceItDerivesFrom`, so that an object answers to the identifiers of the ancestors too.
//
// Nobody calls AddRef or Release but InterfacePtr, InterfaceCast and the list of wrappers. An object that its maker
// keeps alive by other means (a facade of the host) gives -1 from both and never frees itself.
class IInterface {
public:
    static constexpr TGUID IID = Guid("{00000000-0000-0000-C000-000000000046}");

    // The interface of this object with that identifier, or nil if it has none. The pointer points at the subobject
    // of exactly that interface class and adds no reference. Use InterfaceCast, which knows the type.
    virtual void* QueryInterface(const TGUID& iid) = 0;

    // The count after the call. Release frees the object when the count reaches 0.
    virtual int AddRef() = 0;
    virtual int Release() = 0;

protected:
    ~IInterface() = default;
};
