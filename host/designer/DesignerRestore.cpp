#include "designer/DataKinds.h"
#include "designer/Designer.h"
#include "designer/FormProperties.h"
#include "rtl/Guard.h"

// The live components after the file when an undo or a rollback changed the file: what is gone from it is deleted, what
// is new is made, what differs is read, and the listeners are told of each as of any other change. So the tree and the
// selection stay what they are for everything that the gesture did not touch.

UndoState Designer::Capture()
{
    UndoState state;
    if (FForm)
        state.FormPosition = FForm->Document().Position();
    if (const auto* unit = FSite.Unit())
        state.Unit = unit->Files();
    return state;
}

void Designer::Restore(const UndoState& state, const QList<FormTouch>& touches)
{
    if (!FForm) {
        RestoreUnit(state); // a unit without a form
        return FSite.NotifyModified();
    }
    auto& document = FForm->Document();
    if (state.FormPosition <= document.Position())
        document.UndoTo(state.FormPosition);
    else
        document.RedoTo(state.FormPosition);
    RestoreUnit(state);
    NoteRootClass();
    FSite.NotifyModified();
    if (Root())
        Reconcile(touches);
}

void Designer::RestoreUnit(const UndoState& state)
{
    auto* unit = FSite.Unit();
    if (unit && unit->Files() != state.Unit)
        unit->Restore(state.Unit);
}

void Designer::Reconcile(const QList<FormTouch>& touches)
{
    const Quiet quiet(*this);
    QList<FormNode*> nodes;
    QSet<FormNode*> seen;
    for (const auto& touch : touches)
        if (touch.Property.isEmpty() && !seen.contains(touch.Node)) {
            seen.insert(touch.Node);
            nodes << touch.Node;
        }
    DropWhatIsGone(nodes);
    AdjustNodes(nodes);
    QList<WeakRef<TComponent>> changed;
    MakeWhatIsNew(nodes, changed);
    OrderFields(nodes, changed);
    ReadTouched(touches, changed);
    ForgetUnsaid(nodes);
    SelectChanged(changed);
    TellModified();
}

// Listeners are told of the selection as modified: what changed is part of it, or becomes it.
void Designer::SelectChanged(const QList<WeakRef<TComponent>>& changed)
{
    const auto selected = Selection();
    QList<TPersistent*> present;
    for (const auto& component : changed)
        if (component && !present.contains(component.get()))
            present << component.get();
    const auto isSelected = [&selected](TPersistent* item) { return selected.contains(item); };
    if (!std::all_of(present.cbegin(), present.cend(), isSelected))
        Select(present);
}

void Designer::DropWhatIsGone(const QList<FormNode*>& nodes)
{
    QList<TComponent*> doomed;
    for (const auto* node : nodes) {
        auto* component = FForm->ComponentOf(node);
        if (component && component != Root() && !FForm->IsInFile(*node) && !component->HasState(csAncestor))
            CollectForDeletion(*component, doomed);
    }
    if (doomed.isEmpty())
        return;
    DeleteInOrder(doomed);
    TellSelection();
}

void Designer::AdjustNodes(const QList<FormNode*>& nodes)
{
    for (const auto* node : nodes) {
        auto* component = FForm->ComponentOf(node);
        if (!component || !FForm->IsInFile(*node))
            continue;
        FForm->TakeClass(*node);
        const auto oldName = component->Name();
        if (const auto name = node->Name(); name != oldName && !component->HasState(csAncestor)) {
            component->SetName(name);
            RenameInOtherForms(oldName, name);
            TellRenamed(*component, oldName);
            if (component != Root())
                RenameInDescendants(oldName, name);
        }
        auto* parent = node->Parent() ? FForm->ComponentOf(node->Parent()) : nullptr;
        if (parent && component->GetParentComponent() && component->GetParentComponent() != parent)
            component->SetParentComponent(parent);
    }
}

// `changed` gets what an ancestor's form made, and the node says more of.
void Designer::MakeNode(FormNode& node, QList<WeakRef<TComponent>>& made, QList<WeakRef<TComponent>>& changed)
{
    auto* parent = node.Parent() ? FForm->ComponentOf(node.Parent()) : nullptr;
    if (!parent || FForm->ComponentOf(&node) || !FForm->IsInFile(node))
        return; // what has no parent yet comes with it
    if (node.TheKind() != FormNode::Kind::Inherited) {
        for (auto* component : FForm->BuildNode(node, RootFinder()))
            made << WeakRef<TComponent>(component);
        return;
    }
    auto* owner = parent;
    while (owner != Root() && !owner->HasState(csInline))
        owner = owner->Owner();
    auto* inherited = owner->FindComponent(node.Name());
    if (!inherited)
        return;
    FForm->Bind(node, *inherited);
    for (const auto* property : node.Properties())
        FForm->ReadProperty(node, property->Name(), RootFinder());
    changed << WeakRef<TComponent>(inherited);
    for (auto* child : node.Children())
        MakeNode(*child, made, changed);
}

void Designer::MakeWhatIsNew(const QList<FormNode*>& nodes, QList<WeakRef<TComponent>>& changed)
{
    QList<WeakRef<TComponent>> made;
    for (auto* node : nodes)
        MakeNode(*node, made, changed);
    QList<TPersistent*> present;
    for (const auto& component : std::as_const(made)) {
        if (component)
            TellInserted(*component.get());
        if (component)
            InsertInDescendants(*component.get());
        if (component)
            present << component.get();
    }
    // In the forms that inherit, too, what refers to another of them finds it now that all are there.
    for (const auto& component : std::as_const(made))
        for (const auto* property : GetPropList(component ? component->ClassType() : TClass(), { tkClass }, false))
            if (component && !property->IsSubObject)
                PassOn(*component.get(), property->Name);
    if (!present.isEmpty())
        Select(present);
}

// The value that holds when the file says nothing: the ancestor's or the frame's, else the class's own.
void Designer::ReadUnsaid(TComponent& component, const QString& path)
{
    const auto place = FormProperties::FindWhole(component, path);
    FForm->Links().Forget(place.Instance, place.Name);
    const FormProperties::Taking taking(component);
    if (auto* inherited = Inherited(*place.Instance))
        TakeOver(*inherited, &component == Root() ? QString() : component.Name(), place.Name);
    else if (!FForm->ReadFromFrame(component, path, RootFinder()))
        FormProperties::Reset(component, path);
}

void Designer::ReadTouched(const QList<FormTouch>& touches, QList<WeakRef<TComponent>>& changed)
{
    QSet<std::pair<FormNode*, QString>> seen;
    QList<WeakRef<TComponent>> unsaid;
    for (const auto& touch : touches) {
        const WeakRef<TComponent> component(FForm->ComponentOf(touch.Node));
        if (!component || touch.Property.isEmpty() || seen.contains({ touch.Node, touch.Property }))
            continue;
        seen.insert({ touch.Node, touch.Property });
        const bool inFile = FForm->IsInFile(*touch.Node);
        if (!inFile || !FForm->ReadProperty(*touch.Node, touch.Property, RootFinder()))
            ReadUnsaid(*component.get(), touch.Property);
        if (!inFile)
            unsaid << component;
        if (!component)
            continue;
        const auto place = FormProperties::FindWhole(*component.get(), touch.Property);
        PassOn(*place.Instance, place.Name);
        changed << component;
    }
    for (const auto& component : std::as_const(unsaid))
        if (component && component->HasState(csAncestor)) {
            FForm->Unbind(*component.get());
            FForm->Know(*component.get());
        }
}

// What comes from an ancestor and has no node in the file any more.
void Designer::ForgetUnsaid(const QList<FormNode*>& nodes)
{
    for (const auto* node : nodes) {
        const auto* component = FForm->ComponentOf(node);
        if (!component || !component->HasState(csAncestor) || FForm->IsInFile(*node))
            continue;
        FForm->Unbind(*component);
        FForm->Know(*component);
    }
}
