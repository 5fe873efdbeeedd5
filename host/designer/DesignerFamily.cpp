#include "designer/DataKinds.h"
#include "designer/Designer.h"
#include "designer/FormProperties.h"
#include "rtl/SysUtils.h"

// Forms that inherit from this one follow its changes, as long as they are open: what they say themselves stays.

namespace {

TPersistent* SubObjectOf(const TPersistent& owner, const QString& name)
{
    const auto* info = GetPropInfo(&owner, name);
    return info && info->IsSubObject ? info->Get(&owner).value<TPersistent*>() : nullptr;
}

QString NameOf(const TPersistent& owner, const TPersistent& object)
{
    for (const auto* property : GetPropList(owner.ClassType(), { tkClass }, false))
        if (property->IsSubObject && property->Get(&owner).value<TPersistent*>() == &object)
            return property->Name;
    return {};
}

// The object of the other component that corresponds to this part of a component.
TPersistent* Counterpart(const TPersistent& part, TComponent& other)
{
    if (dynamic_cast<const TComponent*>(&part))
        return &other;
    const auto* owner = part.GetOwner();
    auto* otherOwner = owner ? Counterpart(*owner, other) : nullptr;
    if (!otherOwner)
        return nullptr;
    if (const auto* item = dynamic_cast<const TCollectionItem*>(&part)) {
        auto* collection = dynamic_cast<TCollection*>(otherOwner);
        const auto index = item->Index();
        return collection && index >= 0 && index < collection->Count() ? collection->Item(index) : nullptr;
    }
    return SubObjectOf(*otherOwner, NameOf(*owner, part));
}

const TComponent* ComponentOf(const TPersistent& part)
{
    const auto* walk = &part;
    while (walk && !dynamic_cast<const TComponent*>(walk))
        walk = walk->GetOwner();
    return dynamic_cast<const TComponent*>(walk);
}

}

TPersistent* Designer::Inherited(const TPersistent& part) const
{
    const auto* component = ComponentOf(part);
    const bool isRoot = component && component == Root();
    if (!component || (!isRoot && (!component->HasState(csAncestor) || component->Owner() != Root())))
        return nullptr;
    auto* ancestor = FSite.AncestorDesigner();
    auto* original = !ancestor ? nullptr : isRoot ? ancestor->Root() : ancestor->GetComponent(component->Name());
    return original ? Counterpart(part, *original) : nullptr;
}

void Designer::InsertInDescendants(TComponent& component)
{
    PassOnInsertion(component, component.HasState(csInline) ? FForm->NodeOf(&component) : nullptr);
}

// `frame` is what the file of the form where it stands first says of a frame.
void Designer::PassOnInsertion(TComponent& component, FormNode* frame)
{
    const WeakRef<TComponent> kept(&component);
    for (auto* descendant : FSite.DescendantDesigners())
        if (kept && descendant->Root() && component.Owner() == Root())
            descendant->InsertInherited(component, frame);
}

void Designer::InsertInherited(TComponent& original, FormNode* frame)
{
    if (Root()->FindComponent(original.Name()))
        return;
    TComponent* made = nullptr;
    if (frame) {
        const Quiet quiet(*this);
        auto* parent = original.GetParentComponent();
        auto* ownParent = parent && parent->Owner() ? Root()->FindComponent(parent->Name()) : Root();
        made = FForm->BuildInheritedFrame(*frame, ownParent ? *ownParent : *Root(), RootFinder());
        if (!made)
            return;
    } else {
        const Quiet quiet(*this);
        made = dynamic_cast<TComponent*>(original.ClassType().Create(Root()));
        made->SetComponentState(csDesigning | csAncestor);
        auto* parent = original.GetParentComponent();
        auto* ownParent = !parent ? nullptr : parent->Owner() ? Root()->FindComponent(parent->Name()) : Root();
        if (ownParent)
            made->SetParentComponent(ownParent);
        made->SetDesignPosition(original.DesignLeft(), original.DesignTop());
        made->SetName(original.Name());
        for (const auto* property : GetPropList(original.ClassType(), {}, false))
            TakeOver(original, original.Name(), property->Name);
    }
    FForm->Know(*made);
    const WeakRef<TComponent> kept(made);
    TellInserted(*made);
    if (kept)
        PassOnInsertion(*made, frame);
    TellModified();
}

void Designer::DeleteInDescendants(const QString& name)
{
    for (auto* descendant : FSite.DescendantDesigners()) {
        auto* inherited = descendant->Root() ? descendant->Root()->FindComponent(name) : nullptr;
        if (!inherited || !inherited->HasState(csAncestor))
            continue;
        // What the form itself put on the component goes along.
        QList<TComponent*> doomed;
        descendant->CollectForDeletion(*inherited, doomed);
        const WeakRef<TComponent> fields(DataKinds::IsField(*inherited) ? inherited->GetParentComponent() : nullptr);
        descendant->DeleteInOrder(doomed);
        if (fields)
            descendant->OrderAsInFile(*fields.get());
    }
}

void Designer::RenameInDescendants(const QString& oldName, const QString& newName)
{
    for (auto* descendant : FSite.DescendantDesigners()) {
        auto* inherited = descendant->Root() ? descendant->Root()->FindComponent(oldName) : nullptr;
        if (!inherited || !inherited->HasState(csAncestor))
            continue;
        {
            const Quiet quiet(*descendant);
            inherited->SetName(newName);
        }
        if (!FSite.Undo().IsRestoring()) {
            descendant->FForm->RenameNode(*inherited);
            descendant->FForm->RenameReferences(oldName, newName);
        }
        descendant->RenameInOtherForms(oldName, newName);
        const WeakRef<TComponent> kept(inherited);
        descendant->FSite.NotifyRenamed(inherited, oldName, newName);
        descendant->TellModified();
        if (kept)
            descendant->RenameInDescendants(oldName, newName);
    }
}

void Designer::RenameInOtherForms(const QString& oldName, const QString& newName)
{
    const bool isRoot = Root()->Name() == newName && !Root()->FindComponent(newName);
    const auto oldTarget = isRoot ? oldName : RootName() + u'.' + oldName;
    const auto newTarget = isRoot ? newName : RootName() + u'.' + newName;
    for (auto* other : FSite.OpenDesigners()) {
        if (other == this || !other->Form() || other->FForm->Links().Rename(oldTarget, newTarget).isEmpty())
            continue;
        if (!FSite.Undo().IsRestoring())
            other->FForm->RenameReferences(oldTarget, newTarget);
    }
}

void Designer::PassOn(TPersistent& instance, const QString& property)
{
    const auto* component = ComponentOf(instance);
    if (!component || (component != Root() && component->Owner() != Root()))
        return;
    const auto name = component == Root() ? QString() : component->Name();
    for (auto* descendant : FSite.DescendantDesigners())
        if (descendant->Root())
            descendant->TakeOver(instance, name, property);
}

namespace {

// The path under which a form file names a property of a part.
QString PathOf(const TPersistent& part, const QString& property)
{
    const auto* owner = part.GetOwner();
    if (dynamic_cast<const TComponent*>(&part) || !owner)
        return property;
    const auto name = NameOf(*owner, part);
    return name.isEmpty() ? QString() : PathOf(*owner, name + u'.' + property);
}

QVariant Translated(const QVariant& value, const TComponent& oldRoot, TComponent& newRoot)
{
    auto* target = dynamic_cast<TComponent*>(value.value<TPersistent*>());
    return target ? QVariant::fromValue<TPersistent*>(FormLinks::InheritedTarget(oldRoot, *target, newRoot)) : value;
}

}

void Designer::TakeOverValue(
    TPersistent& target, const TPropInfo& info, const TPersistent& original, const TComponent& originalRoot)
{
    const auto value = Translated(info.Get(&original), originalRoot, *Root());
    FForm->Links().Forget(&target, info.Name);
    SetPropValue(&target, info.Name, value);
    const auto* linked = info.IsSubObject ? nullptr : dynamic_cast<TComponent*>(value.value<TPersistent*>());
    if (linked && !FForm->Holds(linked))
        FForm->Links().Add({ &target, info.Name, FormLinks::NameFrom(*Root(), *Root(), *linked), Root() });
}

void Designer::TakeOver(TPersistent& original, const QString& componentName, const QString& property)
{
    auto* component = componentName.isEmpty() ? Root() : Root()->FindComponent(componentName);
    const auto* source = ComponentOf(original);
    auto* target = component ? Counterpart(original, *component) : nullptr;
    const auto* info = GetPropInfo(&original, property);
    if (!target || !source || (component == Root()) != (source->Owner() == nullptr))
        return;
    if (DataKinds::IsField(*component) && SameText(property, u"Index"))
        return TakeOverFieldOrder(*component);
    const auto* node = FForm->NodeOf(component);
    const auto path = PathOf(original, property);
    if (node && (node->Property(path) || node->Property(path + QLatin1String(".Strings"))))
        return;
    {
        const Quiet quiet(*this);
        const FormProperties::Taking taking(*component);
        try {
            if (!info && source != &original)
                return;
            if (!info)
                component->SetDesignPosition(source->DesignLeft(), source->DesignTop());
            else if (info->Set || info->IsSubObject)
                TakeOverValue(*target, *info, original, source->Owner() ? *source->Owner() : *source);
        } catch (const Exception&) {
            // What cannot be carried over stays as it is there.
        }
    }
    PassOn(*target, property);
}

// The field's own place is the file's to say.
void Designer::TakeOverFieldOrder(TComponent& field)
{
    auto* parent = field.GetParentComponent();
    if (parent && !OrderAsInFile(*parent).isEmpty())
        PassOn(field, QStringLiteral("Index"));
}
