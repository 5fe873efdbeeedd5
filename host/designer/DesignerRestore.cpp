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
        state.FormPosition = FForm->Document().position();
    if (const auto* unit = FSite.Unit())
        state.Unit = unit->Files();
    return state;
}

void Designer::Restore(const UndoState& state, const QList<FormTouch>& touches)
{
    if (!FForm)
        return;
    auto& document = FForm->Document();
    if (state.FormPosition <= document.position())
        document.undoTo(state.FormPosition);
    else
        document.redoTo(state.FormPosition);
    RestoreUnit(state);
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
    MakeWhatIsNew(nodes);
    ReadTouched(touches);
    TellModified();
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
        const auto oldName = component->Name();
        if (const auto name = node->name(); name != oldName && !component->HasState(csAncestor)) {
            component->SetName(name);
            RenameInOtherForms(oldName, name);
            TellRenamed(*component, oldName);
            if (component != Root())
                RenameInDescendants(oldName, name);
        }
        auto* parent = node->parent() ? FForm->ComponentOf(node->parent()) : nullptr;
        if (parent && component->GetParentComponent() && component->GetParentComponent() != parent)
            component->SetParentComponent(parent);
        if (DataKinds::IsField(*component) && parent) {
            int index = 0;
            for (const auto* sibling : node->parent()->children()) {
                if (sibling == node)
                    break;
                const auto* other = FForm->ComponentOf(sibling);
                index += other && DataKinds::IsField(*other) ? 1 : 0;
            }
            SetPropValue(component, QStringLiteral("Index"), index);
        }
    }
}

void Designer::MakeWhatIsNew(const QList<FormNode*>& nodes)
{
    QList<WeakRef<TComponent>> made;
    for (auto* node : nodes) {
        if (FForm->ComponentOf(node) || !FForm->IsInFile(*node) || node == &FForm->Document().root())
            continue;
        if (node->kind() == FormNode::Kind::Inherited) {
            if (auto* inherited = Root()->FindComponent(node->name()))
                FForm->Bind(*node, *inherited);
            continue;
        }
        const auto outer = std::find_if(
            nodes.begin(), nodes.end(), [node](const FormNode* other) { return other == node->parent(); });
        if (outer != nodes.end() && !FForm->ComponentOf(*outer))
            continue; // comes with its parent
        for (auto* component : FForm->BuildNode(*node, RootFinder()))
            made << WeakRef<TComponent>(component);
    }
    QList<TPersistent*> present;
    for (const auto& component : std::as_const(made)) {
        if (component)
            TellInserted(*component.get());
        if (component)
            InsertInDescendants(*component.get());
        if (component)
            present << component.get();
    }
    if (!present.isEmpty())
        Select(present);
}

void Designer::ReadTouched(const QList<FormTouch>& touches)
{
    QSet<std::pair<FormNode*, QString>> seen;
    QList<TPersistent*> changed;
    for (const auto& touch : touches) {
        auto* component = FForm->ComponentOf(touch.Node);
        if (!component || touch.Property.isEmpty() || seen.contains({ touch.Node, touch.Property }))
            continue;
        seen.insert({ touch.Node, touch.Property });
        const bool inFile = FForm->IsInFile(*touch.Node);
        const WeakRef<TComponent> kept(component);
        if (!inFile || !FForm->ReadProperty(*touch.Node, touch.Property, RootFinder())) {
            const auto place = FormProperties::Find(*component, touch.Property);
            FForm->Links().Forget(place.Instance, place.Name);
            if (auto* inherited = Inherited(*place.Instance))
                TakeOver(*inherited, component == Root() ? QString() : component->Name(), place.Name);
            else
                FormProperties::Reset(*component, touch.Property);
        }
        if (!inFile && component->HasState(csAncestor))
            FForm->Unbind(*component);
        if (!kept)
            continue;
        const auto place = FormProperties::Find(*component, touch.Property);
        PassOn(*place.Instance, place.Name);
        if (!changed.contains(component))
            changed << component;
    }
    if (Selection().isEmpty() && !changed.isEmpty())
        Select(changed);
}
