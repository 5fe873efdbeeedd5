#include "classes/TPersistent.h"

#include "classes/TClassBuilder.h"
#include "classes/TComponent.h"

#include <map>

struct TPersistent::Extra {
    QMap<QString, QVariant> Values;
    std::map<QString, std::unique_ptr<TPersistent>> SubObjects;
};

TPersistent::TPersistent() = default;

TPersistent::~TPersistent()
{
    if (FSelf)
        *FSelf = nullptr;
}

TClass TPersistent::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TPersistent>(info, QStringLiteral("TPersistent"), nullptr).Made();
    return made;
}

void TPersistent::Assign(TPersistent* source)
{
    throw EConvertError(QStringLiteral("Cannot assign a %1 to a %2")
                            .arg(source ? source->ClassName() : QStringLiteral("nil"), ClassName()));
}

TPersistent::Extra& TPersistent::NeedExtra()
{
    if (!FExtra)
        FExtra = std::make_unique<Extra>();
    return *FExtra;
}

QVariant TPersistent::StoredValue(const QString& name, const QVariant& defaultValue) const
{
    return FExtra ? FExtra->Values.value(name, defaultValue) : defaultValue;
}

void TPersistent::SetStoredValue(const QString& name, const QVariant& value)
{
    auto& values = NeedExtra().Values;
    const auto old = values.constFind(name);
    if (old != values.constEnd() && *old == value)
        return;
    values.insert(name, value);
    auto* self = dynamic_cast<TComponent*>(this);
    auto* target = value.typeId() == qMetaTypeId<TPersistent*>()
        ? dynamic_cast<TComponent*>(value.value<TPersistent*>())
        : nullptr;
    for (auto* owner = static_cast<TPersistent*>(this); target && !self && owner; owner = owner->GetOwner())
        self = dynamic_cast<TComponent*>(owner);
    if (self && target)
        self->FreeNotification(target);
    Changed(name);
}

QStringList TPersistent::StoredValueNames() const
{
    return FExtra ? FExtra->Values.keys() : QStringList();
}

void TPersistent::AdoptSubObject(const QString& name, std::unique_ptr<TPersistent> object)
{
    object->SetSubObjectOwner(this);
    NeedExtra().SubObjects[name] = std::move(object);
}

TPersistent* TPersistent::SubObject(const QString& name) const
{
    if (!FExtra)
        return nullptr;
    const auto found = FExtra->SubObjects.find(name);
    return found == FExtra->SubObjects.end() ? nullptr : found->second.get();
}

void TPersistent::ClearStoredReferences(const TComponent* component)
{
    if (!FExtra)
        return;
    QStringList cleared;
    for (auto value = FExtra->Values.begin(); value != FExtra->Values.end(); ++value) {
        if (value->typeId() != qMetaTypeId<TPersistent*>() || value->value<TPersistent*>() != component)
            continue;
        *value = QVariant::fromValue<TPersistent*>(nullptr);
        cleared << value.key();
    }
    for (const auto& name : cleared)
        Changed(name);
    for (const auto& [name, object] : FExtra->SubObjects)
        object->ClearStoredReferences(component);
}

void TPersistent::Changed(const QString& property)
{
    PropertyChanged(property);
    auto* root = this;
    while (auto* owner = root->GetOwner())
        root = owner;
    if (auto* component = dynamic_cast<TComponent*>(root))
        if (auto* hook = component->DesignerHook())
            hook->PropertyChanged(this, property);
}

std::shared_ptr<TPersistent*> TPersistent::Self() const
{
    if (!FSelf)
        FSelf = std::make_shared<TPersistent*>(const_cast<TPersistent*>(this));
    return FSelf;
}

TClass TStrings::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TStrings>(info, QStringLiteral("TStrings"), TPersistent::Class()).Made();
    return made;
}

void TStrings::Assign(TPersistent* source)
{
    if (auto* strings = dynamic_cast<TStrings*>(source))
        SetLines(strings->Lines());
    else
        TPersistent::Assign(source);
}

void TStrings::SetLines(const QStringList& lines)
{
    if (lines == FLines)
        return;
    FLines = lines;
    if (auto* owner = GetOwner())
        owner->Changed(FProperty);
}

QString TStrings::Text() const
{
    QString text;
    for (const auto& line : FLines)
        text += line + QLatin1String("\r\n");
    return text;
}

void TStrings::SetText(const QString& text)
{
    auto plain = text;
    plain.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
    auto lines = plain.split(u'\n');
    if (lines.last().isEmpty())
        lines.removeLast();
    SetLines(lines);
}

QString TStrings::Value(const QString& name) const
{
    for (const auto& line : FLines) {
        const auto equals = line.indexOf(u'=');
        if (equals >= 0 && SameText(QStringView(line).left(equals), name))
            return line.mid(equals + 1);
    }
    return {};
}

TClass TCollectionItem::Class()
{
    static TClassInfo info;
    static const TClass made
        = TClassBuilder<TCollectionItem>(info, QStringLiteral("TCollectionItem"), TPersistent::Class()).Made();
    return made;
}

TCollectionItem::TCollectionItem(TCollection* collection)
    : FCollection(collection)
{
}

TPersistent* TCollectionItem::GetOwner() const
{
    return FCollection;
}

int TCollectionItem::Index() const
{
    return FCollection ? FCollection->IndexOf(this) : -1;
}

TClass TCollection::Class()
{
    static TClassInfo info;
    static const TClass made
        = TClassBuilder<TCollection>(info, QStringLiteral("TCollection"), TPersistent::Class()).Made();
    return made;
}

TCollection::TCollection(TPersistent* owner, const QString& property, ItemFactory make)
    : FProperty(property)
    , FMake(std::move(make))
{
    SetSubObjectOwner(owner);
}

TCollection::~TCollection() = default;

TCollectionItem* TCollection::Add()
{
    FItems.push_back(FMake ? FMake(this) : std::make_unique<TCollectionItem>(this));
    auto* added = FItems.back().get();
    Changed(FProperty);
    return added;
}

void TCollection::Delete(int index)
{
    FItems.erase(FItems.begin() + index);
    Changed(FProperty);
}

void TCollection::Clear()
{
    if (FItems.empty())
        return;
    FItems.clear();
    Changed(FProperty);
}

int TCollection::IndexOf(const TCollectionItem* item) const
{
    for (size_t i = 0; i < FItems.size(); ++i)
        if (FItems[i].get() == item)
            return int(i);
    return -1;
}
