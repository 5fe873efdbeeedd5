#include "classes/Controls.h"
#include "designer/DataKinds.h"
#include "designer/Designer.h"
#include "rtl/SysUtils.h"

// What the live components report.

namespace {

TComponent* ComponentOf(TPersistent* part)
{
    auto* walk = part;
    while (walk && !dynamic_cast<TComponent*>(walk))
        walk = walk->GetOwner();
    return dynamic_cast<TComponent*>(walk);
}

}

void Designer::PropertyChanged(TPersistent* instance, const QString& property)
{
    auto* component = ComponentOf(instance);
    if (FQuiet > 0 || FSite.Undo().IsRestoring() || !component || !Root() || component->HasState(csDestroying)
        || FInMaking.contains(component))
        return;
    const bool isAdopted = component->HasState(csAncestor) || FForm->NodeOf(component) || component == Root();
    if (!isAdopted)
        return;
    UndoStack::Gesture gesture(FSite.Undo(), QStringLiteral("Change ") + property, component);
    if (DataKinds::IsField(*component) && SameText(property, u"Index"))
        WriteFieldOrder(*component);
    else
        FForm->WriteProperty(*instance, property, Inherited(*instance));
    PassOn(*instance, property);
}

void Designer::ValidateRename(TComponent* component, const QString& oldName, const QString& newName)
{
    if (FQuiet > 0 || oldName.isEmpty())
        return;
    if (component->HasState(csAncestor) && component != Root())
        throw EComponentError(QStringLiteral("%1 comes from the ancestor form and is renamed there").arg(oldName));
    const bool isRootName
        = component == Root() ? Root()->FindComponent(newName) != nullptr : SameText(Root()->Name(), newName);
    if (isRootName)
        throw EComponentError(QStringLiteral("A component named %1 already exists").arg(newName));
    for (auto* descendant : FSite.DescendantDesigners())
        if (component != Root() && descendant->Root() && !SameText(oldName, newName)
            && descendant->GetComponent(newName))
            throw EComponentError(
                QStringLiteral("A component named %1 already exists on %2").arg(newName, descendant->RootName()));
    if (component == Root())
        FSite.WillRenameRoot(newName);
}

// Units and project first: where one of them cannot follow, the root keeps its name.
void Designer::RenameRoot(const QString& oldName)
{
    const auto newName = Root()->Name();
    if (const auto failure = FSite.RenameRoot(oldName, newName)) {
        const Quiet quiet(*this);
        Root()->SetName(oldName);
        throw EComponentError(failure->ToString());
    }
    FForm->RenameNode(*Root());
    FForm->RenameReferences(oldName, newName);
    const auto oldClass = RootClassName();
    if (SameText(oldClass, u'T' + oldName))
        FForm->RenameClass(oldClass, u'T' + newName);
    NoteRootClass();
}

void Designer::NoteRootClass()
{
    const auto oldClass = std::exchange(FKnownClass, RootClassName());
    if (oldClass != FKnownClass)
        FSite.RootClassChanged(oldClass, FKnownClass);
}

void Designer::Renamed(TComponent* component, const QString& oldName)
{
    if (FQuiet > 0 || FSite.Undo().IsRestoring() || FInMaking.contains(component) || component->HasState(csDestroying)
        || !Root())
        return;
    if (oldName.isEmpty()) {
        Adopt(*component);
        return;
    }
    UndoStack::Gesture gesture(FSite.Undo(), QStringLiteral("Rename"));
    if (component == Root()) {
        RenameRoot(oldName);
    } else {
        FForm->RenameNode(*component);
        FForm->RenameReferences(oldName, component->Name());
    }
    if (component->Owner() == Root())
        if (auto* unit = FSite.Unit()) {
            FSite.WillEdit();
            Report(unit->RenameField(RootClassName(), oldName, component->Name()));
        }
    const WeakRef<TComponent> kept(component);
    RenameInOtherForms(oldName, component->Name());
    TellRenamed(*component, oldName);
    if (kept && component != Root())
        RenameInDescendants(oldName, component->Name());
    auto* control = dynamic_cast<TControl*>(kept.get());
    if (control && control->Caption() == oldName)
        control->SetCaption(control->Name());
}
