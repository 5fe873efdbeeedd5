#pragma once

#include "classes/TypInfo.h"
#include "rtl/SysUtils.h"

#include <type_traits>

class TClassBuilderBase {
protected:
    TClassBuilderBase(TClassInfo& info, const QString& name, TClass parent);
    void Index();
    TClassInfo& FInfo;
};

// The fluent table in which a C++ class describes itself:
//
//     TClass TDataSource::Class()
//     {
//         static TClassInfo info;
//         static const TClass made = TClassBuilder<TDataSource>(info, u"TDataSource"_qs, TComponent::Class())
//             .Unit(u"Data.DB"_qs)
//             .Reference<TDataSet>(u"DataSet"_qs, &TDataSource::DataSet, &TDataSource::SetDataSet)
//             .Property(u"Enabled"_qs, &TDataSource::Enabled, &TDataSource::SetEnabled, true)
//             .Made();
//         return made;
//     }
template <class T>
class TClassBuilder : private TClassBuilderBase {
public:
    TClassBuilder(TClassInfo& info, const QString& name, TClass parent)
        : TClassBuilderBase(info, name, parent)
    {
        if constexpr (std::is_constructible_v<T, TComponent*>)
            FInfo.Factory = [](TComponent* owner) -> TPersistent* { return new T(owner); };
        else if constexpr (std::is_default_constructible_v<T>)
            FInfo.Factory = [](TComponent*) -> TPersistent* { return new T(); };
    }

    TClassBuilder& Unit(const QString& unit)
    {
        FInfo.Unit = unit;
        return *this;
    }
    TClassBuilder& Group(const QString& group)
    {
        FInfo.Group = group;
        return *this;
    }
    // The class is known and can be asked about, but not made.
    TClassBuilder& Abstract()
    {
        FInfo.Abstract = true;
        return *this;
    }

    // An integer, float, string or Boolean property; the type follows from the getter.
    template <class Get, class Set>
    TClassBuilder& Property(const QString& name, Get get, Set set, const QVariant& defaultValue = {})
    {
        using Value = std::decay_t<std::invoke_result_t<Get, const T&>>;
        TPropInfo property { name, TypeOf<Value>(), {}, {}, defaultValue };
        property.Get = [get](const TPersistent* object) {
            return ToVariant<Value>(std::invoke(get, static_cast<const T&>(*object)));
        };
        property.Set = [set](TPersistent* object, const QVariant& value) {
            std::invoke(set, static_cast<T&>(*object), value.value<Value>());
        };
        FInfo.Properties << property;
        return *this;
    }

    // An enumeration, whose getter and setter work on the number.
    template <class Get, class Set>
    TClassBuilder& Enumeration(
        const QString& name, const TTypeInfo& type, Get get, Set set, const QVariant& defaultValue = {})
    {
        using Value = std::decay_t<std::invoke_result_t<Get, const T&>>;
        TPropInfo property { name, type, {}, {}, defaultValue };
        property.Get = [get, type](const TPersistent* object) {
            return QVariant(GetEnumName(type, int(std::invoke(get, static_cast<const T&>(*object)))));
        };
        property.Set = [set, type](TPersistent* object, const QVariant& value) {
            const int number
                = value.typeId() == QMetaType::QString ? GetEnumValue(type, value.toString()) : value.toInt();
            if (number < 0)
                throw EConvertError(QStringLiteral("'%1' is no value of %2").arg(value.toString(), type.Name));
            std::invoke(set, static_cast<T&>(*object), Value(number));
        };
        FInfo.Properties << property;
        return *this;
    }

    // A reference to another component, of class Target.
    template <class Target, class Get, class Set>
    TClassBuilder& Reference(const QString& name, const QString& typeName, Get get, Set set)
    {
        TPropInfo property { name, { tkClass, typeName, {} }, {}, {}, QVariant::fromValue<TPersistent*>(nullptr) };
        property.Get = [get](const TPersistent* object) {
            return QVariant::fromValue<TPersistent*>(std::invoke(get, static_cast<const T&>(*object)));
        };
        property.Set = [set, name, typeName](TPersistent* object, const QVariant& value) {
            auto* target = value.value<TPersistent*>();
            auto* typed = dynamic_cast<Target*>(target);
            if (target && !typed)
                throw EPropertyError(QStringLiteral("%1 takes a %2").arg(name, typeName));
            std::invoke(set, static_cast<T&>(*object), typed);
        };
        FInfo.Properties << property;
        return *this;
    }

    // An object that belongs to the instance; `get` gives a pointer to it. Assigning to it assigns its content.
    template <class Get>
    TClassBuilder& SubObject(const QString& name, const QString& typeName, Get get)
    {
        TPropInfo property { name, { tkClass, typeName, {} }, {}, {}, {}, true };
        property.Get = [get](const TPersistent* object) {
            return QVariant::fromValue<TPersistent*>(std::invoke(get, const_cast<T&>(static_cast<const T&>(*object))));
        };
        FInfo.Properties << property;
        return *this;
    }

    // A property that the class publishes and that the instance keeps as it was given (see TPersistent::StoredValue).
    TClassBuilder& Stored(const QString& name, const TTypeInfo& type, const QVariant& defaultValue = {});

    // The property declared last belongs into form files only while this holds.
    TClassBuilder& StoredIf(std::function<bool(const T&)> condition)
    {
        FInfo.Properties.last().IsStored
            = [condition](const TPersistent* object) { return condition(static_cast<const T&>(*object)); };
        return *this;
    }

    TClass Made()
    {
        Index();
        return TClass(&FInfo);
    }

private:
    template <class Value>
    static TTypeInfo TypeOf()
    {
        if constexpr (std::is_same_v<Value, bool>)
            return { tkEnumeration, QStringLiteral("Boolean"), { QStringLiteral("False"), QStringLiteral("True") } };
        else if constexpr (std::is_same_v<Value, qint64>)
            return { tkInt64, QStringLiteral("Int64"), {} };
        else if constexpr (std::is_integral_v<Value>)
            return { tkInteger, QStringLiteral("Integer"), {} };
        else if constexpr (std::is_floating_point_v<Value>)
            return { tkFloat, QStringLiteral("Double"), {} };
        else
            return { tkString, QStringLiteral("string"), {} };
    }
    template <class Value>
    static QVariant ToVariant(const Value& value)
    {
        if constexpr (std::is_integral_v<Value> && !std::is_same_v<Value, bool>)
            return QVariant(qlonglong(value));
        else
            return QVariant(value);
    }
};

// The property `name` of the type, read from and written to the instance's stored values.
TPropInfo StoredProperty(const QString& name, const TTypeInfo& type, const QVariant& defaultValue = {});

template <class T>
TClassBuilder<T>& TClassBuilder<T>::Stored(const QString& name, const TTypeInfo& type, const QVariant& defaultValue)
{
    FInfo.Properties << StoredProperty(name, type, defaultValue);
    return *this;
}
