#pragma once

#include <QHash>
#include <QString>

#include <compare>

class TClassInfo;
class TComponent;
class TPersistent;
struct TPropInfo;

// A value that stands for a class at run time, or nil. Cheap to copy. What it points at lives until exit, except for
// classes of a package, which live until the package is unloaded.
//
// A class is described once: a C++ class in a TClassBuilder table beside its definition, a class that only exists in a
// catalogue by the catalogue's reader. A described class can be made, asked for its parents and its published
// properties, and, once registered, found by name.
class TClass {
public:
    TClass() = default;
    TClass(std::nullptr_t) { }
    explicit TClass(const TClassInfo* info)
        : FInfo(info)
    {
    }

    // Empty for nil.
    QString ClassName() const;
    bool ClassNameIs(QStringView name) const;
    TClass ClassParent() const;
    // True for the class itself and for its ancestors; false when either is nil.
    bool InheritsFrom(TClass ancestor) const;
    // Whether this class or an ancestor bears that name, without regard to case.
    bool InheritsFromNamed(QStringView name) const;

    // The unit that declares the class, with its scope ("Vcl.DBCtrls"); empty when it is not known.
    QString UnitName() const;
    // The class group ("VCL", "FMX", "LCL"), or empty for a class that serves every group.
    QString Group() const;
    bool IsAbstract() const;

    // Makes an instance. The owner may be nil; then the caller owns it and deletes it. Raises EInvalidOperation for nil
    // and for a class that cannot be made.
    TPersistent* Create(TComponent* owner) const;

    const TClassInfo* Info() const { return FInfo; }
    explicit operator bool() const { return FInfo != nullptr; }
    friend bool operator==(TClass a, TClass b) { return a.FInfo == b.FInfo; }

private:
    const TClassInfo* FInfo = nullptr;
};

inline size_t qHash(TClass value, size_t seed = 0)
{
    return qHash(quintptr(value.Info()), seed);
}
