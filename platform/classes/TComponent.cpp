#include "classes/TComponent.h"

#include "classes/TClassBuilder.h"

TClass TComponent::Class()
{
    static TClassInfo info;
    static const TClass made = TClassBuilder<TComponent>(info, QStringLiteral("TComponent"), TPersistent::Class())
                                   .Unit(QStringLiteral("System.Classes"))
                                   .Property(QStringLiteral("Tag"), &TComponent::Tag, &TComponent::SetTag, 0)
                                   .Made();
    return made;
}

TComponent::TComponent(TComponent* owner)
{
    if (owner)
        owner->InsertComponent(this);
}

TComponent::~TComponent()
{
    Destroying();
    for (const auto listeners = std::exchange(FFreeNotifies, {}); auto* listener : listeners) {
        listener->FFreeNotifies.remove(listener->FFreeNotifies.lastIndexOf(this));
        listener->Notification(this, opRemove);
    }
    while (!FComponents.isEmpty())
        delete FComponents.last();
    if (FOwner)
        FOwner->RemoveComponent(this);
}

void TComponent::Destroying()
{
    if (HasState(csDestroying))
        return;
    FComponentState |= csDestroying;
    for (auto* component : std::as_const(FComponents))
        component->Destroying();
}

namespace {

bool IsIdentifier(const QString& name)
{
    for (qsizetype i = 0; i < name.size(); ++i) {
        const auto c = name[i];
        if (!(c.isLetter() || c == u'_' || (i > 0 && c.isDigit())))
            return false;
    }
    return !name.isEmpty();
}

}

void TComponent::InsertComponent(TComponent* component)
{
    if (!component->FName.isEmpty()) {
        if (FindComponent(component->FName))
            throw EComponentError(QStringLiteral("A component named %1 already exists").arg(component->FName));
        FByName.insert(component->FName.toLower(), component);
    }
    component->FOwner = this;
    FComponents << component;
}

void TComponent::RemoveComponent(TComponent* component)
{
    FComponents.remove(FComponents.lastIndexOf(component));
    if (!component->FName.isEmpty())
        FByName.remove(component->FName.toLower());
    component->FOwner = nullptr;
}

void TComponent::SetName(const QString& name)
{
    if (name == FName)
        return;
    if (!name.isEmpty() && !IsIdentifier(name))
        throw EComponentError(QStringLiteral("'%1' is not a valid component name").arg(name));
    auto* same = FOwner ? FOwner->FindComponent(name) : nullptr;
    if (same && same != this)
        throw EComponentError(QStringLiteral("A component named %1 already exists").arg(name));
    auto* hook = FOwner ? FOwner->FHook : FHook;
    if (hook)
        hook->ValidateRename(this, FName, name);
    const auto oldName = std::exchange(FName, name);
    if (FOwner)
        RenameIn(FOwner, oldName);
    if (hook)
        hook->Renamed(this, oldName);
}

void TComponent::RenameIn(TComponent* owner, const QString& oldName)
{
    if (!oldName.isEmpty())
        owner->FByName.remove(oldName.toLower());
    if (!FName.isEmpty())
        owner->FByName.insert(FName.toLower(), this);
}

TComponent* TComponent::FindComponent(const QString& name) const
{
    return name.isEmpty() ? nullptr : FByName.value(name.toLower());
}

void TComponent::SetTag(qlonglong tag)
{
    if (tag == FTag)
        return;
    FTag = tag;
    Changed(QStringLiteral("Tag"));
}

void TComponent::SetDesignPosition(int left, int top)
{
    const bool leftMoved = std::exchange(FDesignLeft, left) != left;
    const bool topMoved = std::exchange(FDesignTop, top) != top;
    if (leftMoved)
        Changed(QStringLiteral("Left"));
    if (topMoved)
        Changed(QStringLiteral("Top"));
}

void TComponent::FreeNotification(TComponent* component)
{
    if (!component || component == this)
        return;
    // The lists mirror each other, and a connection's is as long as the form: ask the short one.
    const bool mineIsShorter = FFreeNotifies.size() <= component->FFreeNotifies.size();
    if (mineIsShorter ? FFreeNotifies.contains(component) : component->FFreeNotifies.contains(this))
        return;
    component->FFreeNotifies << this;
    FFreeNotifies << component;
}

void TComponent::Notification(TComponent* component, TOperation operation)
{
    if (operation == opRemove)
        ClearStoredReferences(component);
}
