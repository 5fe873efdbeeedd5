#include "classes/Controls.h"
#include "data/TField.h"
#include "design/DataControls.h"
#include "designer/DataKinds.h"
#include "designer/Designer.h"
#include "designer/FormClasses.h"
#include "rtl/Guard.h"

#include <algorithm>

// Creating, deleting, renaming and moving components.

namespace {

// TDBEdit gives DBEdit.
QString BaseName(const QString& className)
{
    return className.startsWith(u'T', Qt::CaseInsensitive) && className.size() > 1 ? className.mid(1) : className;
}

bool IsOnFrame(const TComponent& component)
{
    return component.Owner() && component.Owner()->HasState(csInline);
}

}

QString Designer::UniqueName(TClass aClass) const
{
    const auto base = BaseName(aClass.ClassName()).remove(u'.');
    QList<const TComponent*> roots;
    QList<const Designer*> family { this };
    while (!family.isEmpty()) {
        const auto* designer = family.takeFirst();
        if (const auto* root = designer->Root())
            roots << root;
        for (auto* next : designer->FSite.DescendantDesigners())
            family << next;
    }
    for (int number = 1;; ++number) {
        const auto name = base + QString::number(number);
        const bool taken = std::any_of(roots.begin(), roots.end(),
            [&name](const TComponent* root) { return root->FindComponent(name) || SameText(root->Name(), name); });
        if (!taken)
            return name;
    }
}

TClass Designer::ClassForForm(TClass componentClass) const
{
    const auto name = componentClass.ClassName();
    const auto found = FormClasses::Known(name, FSite.ClassGroup());
    if (!found || found.IsAbstract())
        throw EClassNotFound(QStringLiteral("Class %1 not found").arg(name));
    return found;
}

void Designer::CheckParent(const TComponent& parent) const
{
    if (parent.HasState(csInline) || IsOnFrame(parent))
        throw EInvalidOperation(SCantAddToFrame());
}

TComponent* Designer::CreateComponent(
    TClass componentClass, TComponent* parent, int left, int top, int width, int height)
{
    if (!Root())
        return nullptr;
    UndoStack::Gesture gesture(FSite.Undo(), QStringLiteral("Add ") + BaseName(componentClass.ClassName()));
    try {
        auto* holder = parent && FForm->Holds(parent) ? parent : Root();
        CheckParent(*holder);
        auto* made = MakeComponent(ClassForForm(componentClass), holder, { left, top, width, height });
        const WeakRef<TComponent> kept(made);
        Adopt(*made);
        if (kept)
            MakeCompanions(*made);
        return kept.get();
    } catch (...) {
        gesture.Rollback();
        throw;
    }
}

namespace {

// The control that can hold others, nearest to the one asked for.
TWinControl* HolderFrom(TComponent* parent)
{
    for (auto* walk = parent; walk; walk = walk->GetParentComponent())
        if (auto* holder = dynamic_cast<TWinControl*>(walk))
            return holder;
    return nullptr;
}

void CaptionByName(TControl& control)
{
    const auto* caption = GetPropInfo(&control, QStringLiteral("Caption"));
    if (caption && caption->PropType.Kind == tkString && caption->Set)
        caption->Set(&control, control.Name());
}

void TakeTabOrder(TControl& control)
{
    const auto* tabOrder = GetPropInfo(&control, QStringLiteral("TabOrder"));
    if (!tabOrder || !control.Parent() || !dynamic_cast<TWinControl*>(&control))
        return;
    qlonglong next = 0;
    for (auto* sibling : control.Parent()->Controls())
        if (sibling != &control && GetPropInfo(sibling, QStringLiteral("TabOrder")))
            next = std::max(next, GetPropValue(sibling, QStringLiteral("TabOrder")).toLongLong() + 1);
    tabOrder->Set(&control, next);
}

}

TComponent* Designer::MakeComponent(TClass aClass, TComponent* parent, const QRect& place)
{
    const Quiet quiet(*this);
    std::unique_ptr<TComponent> made(dynamic_cast<TComponent*>(aClass.Create(Root())));
    made->SetComponentState(made->ComponentState() | csDesigning);
    FInMaking.insert(made.get());
    const Finally done([this, component = made.get()] { FInMaking.remove(component); });
    if (dynamic_cast<TControl*>(made.get())) {
        auto* holder = HolderFrom(parent);
        made->SetParentComponent(holder ? holder : HolderFrom(Root()));
    } else {
        made->SetParentComponent(parent);
    }
    Place(*made, place);
    made->SetName(UniqueName(aClass));
    if (auto* control = dynamic_cast<TControl*>(made.get())) {
        CaptionByName(*control);
        TakeTabOrder(*control);
    }
    return made.release();
}

void Designer::Place(TComponent& component, const QRect& place)
{
    const auto left = place.x() == -1 ? 8 : place.x();
    const auto top = place.y() == -1 ? 8 : place.y();
    auto* control = dynamic_cast<TControl*>(&component);
    if (!control) {
        component.SetDesignPosition(left, top);
        return;
    }
    const auto width = place.width() > 0 ? place.width() : control->Width();
    const auto height = place.height() > 0 ? place.height() : control->Height();
    control->SetBounds({ left, top, width, height });
}

// A grid's view and level and the like, which are made with the grid and stand within it in the file.
void Designer::MakeCompanions(TComponent& component)
{
    const WeakRef<TComponent> kept(&component);
    QList<std::pair<TComponent*, CreatedComponent>> made;
    for (const auto& companion : FSite.CreatedWith(component.ClassType())) {
        const auto aClass = FormClasses::Known(companion.ClassName, FSite.ClassGroup());
        if (!aClass || aClass.IsAbstract() || !kept)
            continue;
        const Quiet quiet(*this);
        auto* created = dynamic_cast<TComponent*>(aClass.Create(Root()));
        created->SetComponentState(csDesigning);
        created->SetName(Format(companion.Name, { component.Name() }));
        made << std::pair(created, companion);
    }
    for (const auto& [created, companion] : std::as_const(made)) {
        const Quiet quiet(*this);
        for (auto reference = companion.References.cbegin(); reference != companion.References.cend(); ++reference)
            if (GetPropInfo(created, reference.key()))
                SetObjectProp(created, reference.key(), GetComponent(Format(reference.value(), { component.Name() })));
    }
    for (const auto& [created, companion] : std::as_const(made))
        Adopt(*created, &component);
    if (kept && !made.isEmpty())
        Select({ &component });
}

void Designer::Adopt(TComponent& component, TComponent* fileParent)
{
    if (FForm->NodeOf(&component) || !Root())
        return;
    UndoStack::Gesture gesture(FSite.Undo(), QStringLiteral("Add ") + BaseName(component.ClassName()));
    component.SetComponentState(component.ComponentState() | csDesigning);
    FForm->AddNode(component, fileParent);
    Declare(component);
    const WeakRef<TComponent> kept(&component);
    TellInserted(component);
    if (kept)
        Select({ &component });
    TellModified();
    if (kept)
        InsertInDescendants(component);
}

void Designer::Declare(TComponent& component)
{
    auto* unit = FSite.Unit();
    if (!unit || component.Owner() != Root() || component.Name().isEmpty())
        return;
    FSite.WillEdit();
    Report(unit->AddField(RootClassName(), { component.Name(), component.ClassName() }));
    for (const auto& needed : FSite.UnitsNeededBy(component.ClassType()))
        Report(unit->UseInInterface(needed));
}

void Designer::Undeclare(const QString& name)
{
    auto* unit = FSite.Unit();
    const auto declared = unit ? unit->FindClass(RootClassName()) : std::nullopt;
    if (!declared)
        return;
    const auto& fields = declared->PublishedFields;
    if (std::none_of(fields.begin(), fields.end(),
            [&name](const FieldDeclaration& field) { return SameText(field.Name, name); }))
        return;
    FSite.WillEdit();
    Report(unit->RemoveField(RootClassName(), name));
}

void Designer::CollectForDeletion(TComponent& component, QList<TComponent*>& found) const
{
    for (auto* other : component.Owner() ? component.Owner()->Components() : QList<TComponent*>())
        if (other->GetParentComponent() == &component)
            CollectForDeletion(*other, found);
    const auto* node = FForm->NodeOf(&component);
    for (const auto* inner : node ? node->Children() : std::span<FormNode* const>())
        if (auto* nested = FForm->ComponentOf(inner); nested && nested->Owner() == component.Owner())
            CollectForDeletion(*nested, found);
    if (!found.contains(&component))
        found << &component;
}

namespace {

int DeletionRank(const TComponent& component)
{
    if (DataKinds::IsField(component))
        return 1;
    return DataKinds::IsDataComponent(component) ? 2 : 0;
}

}

void Designer::DeleteComponents(const QList<TComponent*>& components)
{
    QList<TComponent*> doomed;
    for (auto* component : components)
        if (component && component != Root() && FForm && FForm->Holds(component))
            CollectForDeletion(*component, doomed);
    if (doomed.isEmpty())
        return;
    for (const auto* component : std::as_const(doomed))
        if (component->HasState(csAncestor) || IsOnFrame(*component))
            throw EInvalidOperation(SCantDeleteAncestor());
    UndoStack::Gesture gesture(FSite.Undo(), QStringLiteral("Delete"));
    DeleteInOrder(doomed);
    TellSelection();
    TellModified();
}

// What is no data first, then fields, then datasets and connections.
void Designer::DeleteInOrder(QList<TComponent*> doomed)
{
    std::stable_sort(doomed.begin(), doomed.end(),
        [](const TComponent* a, const TComponent* b) { return DeletionRank(*a) < DeletionRank(*b); });
    QList<WeakRef<TComponent>> kept;
    for (auto* component : std::as_const(doomed))
        kept << WeakRef<TComponent>(component);
    for (const auto& component : std::as_const(kept))
        if (component)
            DeleteOne(*component.get());
}

void Designer::DeleteSelection()
{
    QList<TComponent*> components;
    for (auto* item : Selection())
        if (auto* component = dynamic_cast<TComponent*>(item))
            components << component;
    DeleteComponents(components);
}

void Designer::DeleteOne(TComponent& component)
{
    const WeakRef<TComponent> kept(&component);
    Release(component);
    delete kept.get();
}

void Designer::Release(TComponent& component)
{
    UndoStack::Gesture gesture(FSite.Undo(), QStringLiteral("Delete"));
    const WeakRef<TComponent> kept(&component);
    const auto name = component.Name();
    Deselect(&component);
    component.Destroying();
    FSite.NotifyRenamed(&component, name, {});
    for (const auto& listener : DesignNotifications())
        if (kept)
            AtEventBorder([&] { listener->ItemDeleted(this, kept.get()); });
    if (!kept)
        return;
    const bool declared = component.Owner() == Root() && !component.HasState(csAncestor);
    if (FSite.Undo().IsRestoring()) {
        FForm->Unbind(component);
    } else {
        FForm->RemoveNode(component);
        if (declared)
            Undeclare(name);
    }
    DeleteInDescendants(name);
}

void Designer::RenameComponent(TComponent& component, const QString& newName)
{
    if (component.Name() == newName)
        return;
    if (newName.isEmpty())
        throw EComponentError(QStringLiteral("'' is not a valid component name"));
    UndoStack::Gesture gesture(FSite.Undo(), QStringLiteral("Rename"));
    component.SetName(newName);
}

TField* Designer::CreateField(
    TDataSet* dataSet, TClass fieldClass, const QString& name, const std::function<void(TField*)>& prepare)
{
    if (!Root() || dataSet->Owner() != Root())
        throw EInvalidOperation(SCantAddToFrame());
    UndoStack::Gesture gesture(FSite.Undo(), QStringLiteral("Add Field"));
    std::unique_ptr<TField> field;
    {
        const Quiet quiet(*this);
        field.reset(dynamic_cast<TField*>(fieldClass.Create(Root())));
        field->SetComponentState(csDesigning);
        prepare(field.get());
        field->SetName(name);
    }
    auto* made = field.release();
    const WeakRef<TField> kept(made);
    Adopt(*made);
    return kept.get();
}

void Designer::DeleteField(TField* field)
{
    DeleteComponents({ field });
}
