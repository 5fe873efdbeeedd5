#include "designer/PropertyReading.h"

namespace {

// The object that the last name of the path belongs to; nil.
const TPersistent* OwnerAt(const TPersistent& object, const QStringList& names)
{
    const auto* walk = &object;
    for (qsizetype i = 0; walk && i + 1 < names.size(); ++i) {
        const auto* info = GetPropInfo(walk, names[i]);
        const auto value = info && info->Get ? info->Get(walk) : QVariant();
        walk = value.canConvert<TPersistent*>() ? value.value<TPersistent*>() : nullptr;
    }
    return walk;
}

}

QVariant PropertyReading::ValueAt(const TPersistent& object, const QString& path)
{
    if (path.isEmpty())
        return {};
    const auto names = path.split(u'.');
    const auto* owner = OwnerAt(object, names);
    const auto* info = owner ? GetPropInfo(owner, names.last()) : nullptr;
    return info && info->Get ? info->Get(owner) : QVariant();
}

QVariant PropertyReading::StoredAt(const TPersistent& object, const QString& path)
{
    const auto names = path.split(u'.');
    const auto* owner = OwnerAt(object, names);
    return owner ? owner->StoredValue(names.last()) : QVariant();
}

QString PropertyReading::TextAt(const TPersistent& object, const QString& path)
{
    const auto value = ValueAt(object, path);
    if (!value.canConvert<TPersistent*>())
        return value.toString();
    const auto* strings = dynamic_cast<const TStrings*>(value.value<TPersistent*>());
    return strings ? strings->Lines().join(u'\n') : QString();
}

int PropertyReading::NumberAt(const TPersistent& object, const QString& path, int otherwise)
{
    bool isNumber = false;
    const auto number = ValueAt(object, path).toDouble(&isNumber);
    return isNumber ? int(number) : otherwise;
}

bool PropertyReading::FlagAt(const TPersistent& object, const QString& path, bool otherwise)
{
    const auto value = ValueAt(object, path);
    return value.isValid() ? value.toBool() : otherwise;
}

TPersistent* PropertyReading::ObjectAt(const TPersistent& object, const QString& path)
{
    const auto value = ValueAt(object, path);
    return value.canConvert<TPersistent*>() ? value.value<TPersistent*>() : nullptr;
}

void PropertyReading::SetNumberAt(TPersistent& object, const QString& path, int value)
{
    const auto names = path.split(u'.');
    auto* owner = const_cast<TPersistent*>(OwnerAt(object, names));
    if (const auto* info = owner ? GetPropInfo(owner, names.last()) : nullptr; info && info->Set)
        SetPropValue(owner, names.last(), value);
}
