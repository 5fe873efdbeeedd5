#include "packages/PropertyMaker.h"

#include "classes/Controls.h"
#include "classes/TClassBuilder.h"
#include "packages/SubObjects.h"
#include "rtl/SysUtils.h"

namespace {

// The types that every catalogue knows.
std::optional<TTypeInfo> simpleType(const QString& name)
{
    static const QHash<QString, TTypeKind> kinds { { QStringLiteral("integer"), tkInteger },
        { QStringLiteral("cardinal"), tkInteger }, { QStringLiteral("int64"), tkInt64 },
        { QStringLiteral("single"), tkFloat }, { QStringLiteral("double"), tkFloat },
        { QStringLiteral("extended"), tkFloat }, { QStringLiteral("currency"), tkFloat },
        { QStringLiteral("tdate"), tkFloat }, { QStringLiteral("ttime"), tkFloat },
        { QStringLiteral("tdatetime"), tkFloat }, { QStringLiteral("string"), tkString },
        { QStringLiteral("char"), tkString }, { QStringLiteral("variant"), tkVariant },
        { QStringLiteral("tnotifyevent"), tkMethod } };
    if (SameText(name, u"Boolean"))
        return TTypeInfo { tkEnumeration, QStringLiteral("Boolean"),
            { QStringLiteral("False"), QStringLiteral("True") } };
    const auto kind = kinds.constFind(name.toLower());
    if (kind == kinds.constEnd())
        return std::nullopt;
    return TTypeInfo { *kind, name, {} };
}

bool isBoolean(const TTypeInfo& type)
{
    return type.Kind == tkEnumeration && type.Name == u"Boolean";
}

// What an object answers that was never given a value, and that has no default to answer with.
QVariant blank(const TTypeInfo& type)
{
    switch (type.Kind) {
    case tkInteger:
    case tkInt64:
        return qlonglong(0);
    case tkFloat:
        return 0.0;
    case tkString:
    case tkMethod:
        return QString();
    case tkSet:
        return QStringList();
    case tkClass:
        return QVariant::fromValue<TPersistent*>(nullptr);
    case tkEnumeration:
        return isBoolean(type) ? QVariant(false) : QVariant(type.EnumNames.value(0));
    default:
        return {};
    }
}

// Empty texts, zero numbers with a fraction, no object and no handler are never written, whatever is declared.
bool isLeftOut(TTypeKind kind)
{
    return kind == tkString || kind == tkFloat || kind == tkClass || kind == tkMethod;
}

TPropInfo storedProperty(const QString& name, const TTypeInfo& type, const QVariant& defaultValue)
{
    const auto initial = defaultValue.isValid() ? defaultValue : blank(type);
    auto property = StoredProperty(name, type, initial);
    property.Default = defaultValue.isValid() || isLeftOut(type.Kind) ? initial : QVariant();
    return property;
}

// A reference takes components of its class; of a class that nobody knows, none can say that it does not fit.
bool isKnownMisfit(const TPersistent& target, TClass wanted, const QString& group)
{
    return wanted && !target.InheritsFrom(wanted) && GetClassInGroup(target.ClassName(), group);
}

TPropInfo referenceProperty(const QString& name, const TTypeInfo& type, const QString& group)
{
    auto property = storedProperty(name, type, {});
    property.Set = [name, typeName = type.Name, group](TPersistent* object, const QVariant& value) {
        const auto* target = value.value<TPersistent*>();
        if (target && isKnownMisfit(*target, GetClassInGroup(typeName, group), group))
            throw EPropertyError(QStringLiteral("%1 takes a %2").arg(name, typeName));
        object->SetStoredValue(name, value);
    };
    return property;
}

// Caption or Text of a control: the text that it shows.
TPropInfo shownText(const QString& name, const TTypeInfo& type)
{
    TPropInfo property { name, type, {}, {}, QString(), false };
    property.Get = [](const TPersistent* object) { return QVariant(static_cast<const TControl*>(object)->Caption()); };
    property.Set = [](TPersistent* object, const QVariant& value) {
        static_cast<TControl*>(object)->SetCaption(value.toString());
    };
    return property;
}

bool isShownText(const QString& name, const TTypeInfo& type, TClass base)
{
    return type.Kind == tkString && base.InheritsFrom(TControl::Class())
        && (SameText(name, u"Caption") || SameText(name, u"Text"));
}

std::optional<QStringList> setElements(const QString& text)
{
    if (!text.startsWith(u'[') || !text.endsWith(u']'))
        return std::nullopt;
    QStringList elements;
    for (const auto& element : text.mid(1, text.size() - 2).split(u',', Qt::SkipEmptyParts))
        elements << element.trimmed();
    return elements;
}

}

std::optional<TPropInfo> PropertyMaker::Make(const CatalogueProperty& declared, TClass base, QString& why) const
{
    const auto type = TypeOf(declared.Type);
    if (!type) {
        why = QStringLiteral("%1: there is no type %2").arg(declared.Name, declared.Type);
        return std::nullopt;
    }
    QVariant defaultValue;
    if (declared.Default && !ReadDefault(declared, *type, defaultValue)) {
        why = QStringLiteral("%1: '%2' is no value of %3").arg(declared.Name, *declared.Default, declared.Type);
        return std::nullopt;
    }
    const auto* published = GetPropInfo(base, declared.Name);
    if (published && published->PropType.Kind == type->Kind) {
        auto kept = *published;
        kept.PropType = *type;
        if (defaultValue.isValid())
            kept.Default = defaultValue;
        return kept;
    }
    if (isShownText(declared.Name, *type, base))
        return shownText(declared.Name, *type);
    if (type->Kind != tkClass)
        return storedProperty(declared.Name, *type, defaultValue);
    return FScope.IsComponent(type->Name) ? referenceProperty(declared.Name, *type, FScope.Own().Group)
                                          : SubObjectProperty(declared.Name, *type, FScope.Own().Group);
}

// The declaration that a name stands for, names for names followed; nil for simple types and classes.
const CatalogueType* PropertyMaker::Behind(const QString& typeName) const
{
    const auto* type = FScope.FindType(typeName);
    for (int steps = 0; type && type->Kind == tkUnknown && steps < 10; ++steps) {
        const auto* next = FScope.FindType(type->Of);
        if (!next)
            break;
        type = next;
    }
    return type;
}

std::optional<TTypeInfo> PropertyMaker::TypeOf(const QString& name) const
{
    if (const auto simple = simpleType(name))
        return simple;
    const auto* type = Behind(name);
    if (!type)
        return FScope.IsClass(name) ? std::optional(TTypeInfo { tkClass, name, {} }) : std::nullopt;
    if (type->Kind == tkUnknown) {
        auto simple = simpleType(type->Of);
        if (simple && !isBoolean(*simple))
            simple->Name = name;
        return simple;
    }
    if (type->Kind != tkSet)
        return TTypeInfo { type->Kind, name, type->Identifiers };
    const auto* elements = Behind(type->Of);
    if (!elements || elements->Kind != tkEnumeration)
        return std::nullopt;
    return TTypeInfo { tkSet, name, elements->Identifiers };
}

QVariant PropertyMaker::NamedInteger(const QString& typeName, const QString& text) const
{
    bool isNumber = false;
    const auto number = text.toLongLong(&isNumber);
    if (isNumber)
        return number;
    const auto* type = Behind(typeName);
    return type && type->Values.contains(text) ? QVariant(type->Values.value(text)) : QVariant();
}

bool PropertyMaker::ReadDefault(const CatalogueProperty& declared, const TTypeInfo& type, QVariant& value) const
{
    const auto& text = *declared.Default;
    bool fits = false;
    switch (type.Kind) {
    case tkInteger:
    case tkInt64:
        value = NamedInteger(declared.Type, text);
        return value.isValid();
    case tkFloat:
        value = text.toDouble(&fits);
        return fits;
    case tkEnumeration:
        value = isBoolean(type) ? QVariant(text == u"True") : QVariant(text);
        return type.EnumNames.contains(text);
    case tkString:
        value = text.mid(1, text.size() - 2);
        return text.size() >= 2 && text.startsWith(u'\'') && text.endsWith(u'\'');
    case tkSet: {
        const auto elements = setElements(text);
        value = elements.value_or(QStringList());
        return elements && std::all_of(elements->begin(), elements->end(), [&type](const QString& element) {
            return type.EnumNames.contains(element);
        });
    }
    default:
        return false;
    }
}
