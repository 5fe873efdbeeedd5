#pragma once

#include "classes/TClass.h"

#include <QHash>
#include <QList>
#include <QStringList>
#include <QVariant>

#include <functional>
#include <memory>

// Kinds of published property types.
enum TTypeKind { tkUnknown, tkInteger, tkEnumeration, tkFloat, tkString, tkSet, tkClass, tkMethod, tkInt64, tkVariant };

// The type of a published property.
struct TTypeInfo {
    TTypeKind Kind = tkUnknown;
    // "Integer", "string", "Boolean", "TAlign", "TDataSource" ...
    QString Name;
    // The identifiers of an enumeration, or of a set's elements, in order; empty where they are not known.
    QStringList EnumNames;
};

// How property values travel in a QVariant:
//   tkInteger, tkInt64   qlonglong          tkFloat   double
//   tkEnumeration        bool for Boolean, otherwise QString with the identifier
//   tkString             QString            tkSet     QStringList of identifiers
//   tkClass              TPersistent* (nil allowed)
//   tkMethod             QString with the handler's name
struct TPropInfo {
    QString Name;
    TTypeInfo PropType;
    // Read an instance that is of the class that publishes the property.
    std::function<QVariant(const TPersistent*)> Get;
    // Empty for a property that cannot be written.
    std::function<void(TPersistent*, const QVariant&)> Set;
    // The value that is not stored; an invalid variant means that every value is stored.
    QVariant Default;
    // True for an object that belongs to the instance (a TStrings, a Font) and not a reference to another component.
    bool IsSubObject = false;
    // Whether the instance's value belongs into its form file at all; empty where the default alone decides. A file
    // that holds the property all the same is read.
    std::function<bool(const TPersistent*)> IsStored = {};
};

// What is known of a class. Made by TClassBuilder or DefineClass; see TClass.
class TClassInfo {
public:
    QString Name;
    TClass Parent;
    QString Unit;
    QString Group;
    bool Abstract = false;
    // Makes an instance with that owner; inherited from the parent when empty.
    std::function<TPersistent*(TComponent*)> Factory;
    // Runs on each new instance of this class, ancestors' first: default sizes, sub-objects.
    std::function<void(TPersistent*)> Init;
    QList<TPropInfo> Properties;

    TClassInfo() = default;
    TClassInfo(const TClassInfo&) = delete;
    TClassInfo& operator=(const TClassInfo&) = delete;

    // The property of this class or of an ancestor, without regard to case, or nil.
    const TPropInfo* FindProperty(const QString& name) const;

private:
    mutable QHash<QString, const TPropInfo*> FIndex;
    friend class TClassBuilderBase;
};

// Describes a class that has no C++ class of its own; the instances are of the nearest C++ ancestor. The process keeps
// the description. `info.Properties` must be complete: they are indexed here.
TClass DefineClass(std::unique_ptr<TClassInfo> info);

// The registry of classes by name. Names are compared without regard to case. Two classes of one name may be
// registered in different groups.

// Registering the same class twice is harmless; another class of the same name and group replaces the earlier one.
void RegisterClass(TClass aClass);
void UnRegisterClass(TClass aClass);
// The registered class of that name in the active group, else the one that serves every group, else nil.
TClass GetClass(const QString& className);
// The same; raises EClassNotFound instead of giving nil.
TClass FindClass(const QString& className);
// The registered class of that name in that group, else the one that serves every group, else nil.
TClass GetClassInGroup(const QString& className, const QString& group);
// Makes the group of that class the one that GetClass searches. Gives the name of the group that was active.
QString ActivateClassGroup(TClass aClass);
QString ActivateClassGroup(const QString& group);
QString ActiveClassGroup();
// All registered classes, in order of registration.
QList<TClass> RegisteredClasses();

// Published properties of an instance. Names are compared without regard to case.

// Nil where the class publishes no such property.
const TPropInfo* GetPropInfo(TClass aClass, const QString& name);
const TPropInfo* GetPropInfo(const TPersistent* instance, const QString& name);
// The published properties of the class and its ancestors that are of one of the kinds (all for an empty list); a
// property that a descendant publishes again stands once. In name order when sorted, otherwise ancestors' first.
QList<const TPropInfo*> GetPropList(TClass aClass, const QList<TTypeKind>& kinds = {}, bool sorted = true);
// The value; raises EPropertyError for a property that does not exist.
QVariant GetPropValue(const TPersistent* instance, const QString& name);
// Converts the value to the property's type and writes it; raises EPropertyError for an unknown or read-only property
// and EConvertError for a value that does not fit.
void SetPropValue(TPersistent* instance, const QString& name, const QVariant& value);
TPersistent* GetObjectProp(const TPersistent* instance, const QString& name);
void SetObjectProp(TPersistent* instance, const QString& name, TPersistent* value);
QString GetStrProp(const TPersistent* instance, const QString& name);
void SetStrProp(TPersistent* instance, const QString& name, const QString& value);
// The identifier of the enumeration's value; empty when the number is outside it.
QString GetEnumName(const TTypeInfo& type, int value);
// The number of the identifier, without regard to case; -1 when it is none.
int GetEnumValue(const TTypeInfo& type, const QString& name);
