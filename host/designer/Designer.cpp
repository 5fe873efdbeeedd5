#include "designer/Designer.h"

#include "classes/Forms.h"
#include "rtl/Guard.h"

Designer::Designer(DesignerSite& site)
    : FSite(site)
{
}

Designer::~Designer()
{
    Close();
}

FormLinks::FindRoot Designer::RootFinder()
{
    return [this](const QString& formName) { return FSite.RootNamed(formName); };
}

void Designer::Open(std::unique_ptr<FormDocument> document, QByteArray text, Problems& problems)
{
    FForm = std::make_unique<LiveForm>(std::move(document), std::move(text), FSite);
    FForm->OnEdit = [this] { FSite.WillEdit(); };
    FForm->OnTouch = [this](const FormTouch& touch) { FSite.Undo().Note(*this, touch); };
    FKnownClass = RootClassName();
    FForm->Build(RootFinder(), problems);
    Attach();
}

void Designer::Attach()
{
    FForm->Root()->SetDesignerHook(this);
    NoteFrames();
}

void Designer::Close()
{
    const Quiet quiet(*this);
    FSelection.clear();
    FForm.reset();
}

// References to its components are cleared in other live forms, but stay in their files.
void Designer::GoDormant()
{
    if (!Root())
        return;
    for (const auto& listener : DesignNotifications())
        AtEventBorder([&] { listener->DesignerClosed(this, true); });
    std::vector<std::unique_ptr<Quiet>> quiet;
    for (auto* designer : FSite.OpenDesigners())
        quiet.push_back(std::make_unique<Quiet>(*designer));
    FSelection.clear();
    FForm->Discard();
}

QString Designer::RootName() const
{
    if (auto* root = Root())
        return root->Name();
    return FForm ? FForm->Document().Root().Name() : QString();
}

QString Designer::RootClassName() const
{
    return FForm ? FForm->Document().Root().ClassName() : QString();
}

void Designer::Activate()
{
    if (!FForm)
        return;
    Resurrect();
    FSite.Activate();
}

void Designer::Resurrect()
{
    if (!IsDormant())
        return;
    Problems known;
    FForm->Build(RootFinder(), known);
    Attach();
    for (const auto& listener : DesignNotifications())
        AtEventBorder([&] { listener->DesignerOpened(this, true); });
    for (auto* other : FSite.OpenDesigners())
        other->ResolveLinks();
}

void Designer::Modified()
{
    if (!FForm)
        return;
    FSite.Undo().EndRun();
    FSite.NotifyModified();
    TellModified();
}

QList<TPersistent*> Designer::Selection() const
{
    QList<TPersistent*> found;
    for (const auto& item : FSelection)
        if (auto* object = item.get())
            found << object;
    return found;
}

void Designer::GetSelections(const InterfacePtr<IDesignerSelections>& list)
{
    for (auto* object : Selection())
        list->Add(object);
}

void Designer::SetSelections(const InterfacePtr<IDesignerSelections>& list)
{
    QList<TPersistent*> items;
    for (int i = 0; list && i < list->GetCount(); ++i)
        if (auto* object = list->Get(i))
            items << object;
    Select(items);
}

void Designer::SelectComponent(TPersistent* instance)
{
    Select(instance ? QList<TPersistent*> { instance } : QList<TPersistent*>());
}

void Designer::ClearSelection()
{
    Select({});
}

void Designer::Select(const QList<TPersistent*>& items)
{
    if (!Root())
        return;
    FSelection.clear();
    for (auto* item : items)
        FSelection << WeakRef<TPersistent>(item);
    TellSelection();
}

void Designer::Deselect(const TPersistent* item)
{
    FSelection.removeIf(
        [item](const WeakRef<TPersistent>& selected) { return !selected.get() || selected.get() == item; });
}

TComponent* Designer::GetComponent(const QString& name)
{
    auto* root = Root();
    if (!root || name.isEmpty())
        return nullptr;
    if (auto* found = root->FindComponent(name))
        return found;
    return SameText(root->Name(), name) ? root : nullptr;
}

TComponent* Designer::FromHandle(TOTAHandle handle) const
{
    return FForm && FForm->Knows(handle) ? static_cast<TComponent*>(handle) : nullptr;
}

InterfacePtr<IDesigner> Designer::GetAncestorDesigner()
{
    return FForm ? InterfacePtr<IDesigner>(FSite.AncestorDesigner()) : nullptr;
}

void Designer::ModuleFileNames(QString& unitName, QString& formName, QString& projectName)
{
    unitName.clear();
    formName.clear();
    projectName.clear();
    if (FForm)
        FSite.FileNames(unitName, formName, projectName);
}

namespace {

TComponent* RootOf(TComponent* component)
{
    auto* root = component;
    while (root && root->Owner())
        root = root->Owner();
    return root;
}

bool Names(const QStringList& entries, const UnitReference& unit)
{
    return std::any_of(entries.begin(), entries.end(),
        [&unit](const QString& entry) { return SameText(entry, unit.Plain) || SameText(entry, unit.Scoped); });
}

}

bool Designer::IsComponentLinkable(TComponent* component)
{
    auto* root = RootOf(component);
    if (!root || root == Root())
        return true;
    const auto reference = FSite.UnitOfRoot(root);
    const auto* unit = FSite.Unit();
    return reference && unit
        && (Names(unit->InterfaceUses(), *reference) || Names(unit->ImplementationUses(), *reference));
}

void Designer::MakeComponentLinkable(TComponent* component)
{
    if (!FForm || IsComponentLinkable(component))
        return;
    const auto reference = FSite.UnitOfRoot(RootOf(component));
    auto* unit = FSite.Unit();
    if (!reference || !unit)
        return;
    UndoStack::Gesture gesture(FSite.Undo(), QStringLiteral("Use Unit"));
    FSite.WillEdit();
    Report(unit->UseInImplementation(*reference));
}

void Designer::Report(const Failure& failure)
{
    if (failure)
        FSite.Report(*failure);
}

void Designer::ResolveLinks()
{
    if (!Root())
        return;
    const Quiet quiet(*this);
    FForm->Links().Resolve(*Root(), RootFinder());
}

void Designer::TellInserted(TComponent& component)
{
    const WeakRef<TComponent> kept(&component);
    FSite.NotifyRenamed(&component, {}, component.Name());
    for (const auto& listener : DesignNotifications())
        if (kept)
            AtEventBorder([&] { listener->ItemInserted(this, kept.get()); });
}

void Designer::TellRenamed(TComponent& component, const QString& oldName)
{
    const WeakRef<TComponent> kept(&component);
    FSite.NotifyRenamed(&component, oldName, component.Name());
    if (!kept)
        return;
    Select({ &component });
    TellModified();
}

void Designer::TellSelection()
{
    const auto list = CreateSelectionList();
    GetSelections(list);
    for (const auto& listener : DesignNotifications())
        AtEventBorder([&] { listener->SelectionChanged(this, list); });
}

void Designer::TellModified()
{
    for (const auto& listener : DesignNotifications())
        AtEventBorder([&] { listener->ItemsModified(this); });
}
