#pragma once

#include <memory>

// The base of objects that others point back to without counting: a list by its wrappers, a wrapper by its children.
class TBackRefTarget {
public:
    TBackRefTarget() = default;
    TBackRefTarget(const TBackRefTarget&) = delete;
    TBackRefTarget& operator=(const TBackRefTarget&) = delete;

    // From now on every back reference to this object is nil.
    void CutBackRefs()
    {
        if (FAlive)
            *FAlive = false;
        FAlive.reset();
    }

protected:
    ~TBackRefTarget() { CutBackRefs(); }

private:
    template <class T>
    friend class TBackRef;
    const std::shared_ptr<bool>& Alive()
    {
        if (!FAlive)
            FAlive = std::make_shared<bool>(true);
        return FAlive;
    }
    std::shared_ptr<bool> FAlive;
};

// A plain pointer back that becomes nil when its target goes, since wrappers outlive their list and their parents where
// a tree node or a drag still holds them. It keeps nothing alive.
template <class T>
class TBackRef {
public:
    TBackRef() = default;
    TBackRef(std::nullptr_t) { }
    TBackRef(T* target)
        : FTarget(target)
        , FAlive(target ? static_cast<TBackRefTarget*>(target)->Alive() : nullptr)
    {
    }
    T* get() const { return FAlive && *FAlive ? FTarget : nullptr; }
    T* operator->() const { return get(); }
    explicit operator bool() const { return get() != nullptr; }
    friend bool operator==(const TBackRef& a, const T* b) { return a.get() == b; }

private:
    T* FTarget = nullptr;
    std::shared_ptr<bool> FAlive;
};
