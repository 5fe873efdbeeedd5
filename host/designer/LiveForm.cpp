#include "designer/LiveForm.h"

#include "designer/FormClasses.h"
#include "designer/FormProperties.h"
#include "rtl/SysUtils.h"

LiveForm::LiveForm(std::unique_ptr<FormDocument> document, QByteArray text, FormClassSource& source)
    : FSource(source)
    , FText(std::move(text))
    , FDocument(std::move(document))
{
}

LiveForm::~LiveForm()
{
    Discard();
}

namespace {

// Every component is told that it is read; those made while others are told are told, too.
void TellLoaded(const QList<TComponent*>& made)
{
    for (auto* component : made)
        component->Loaded();
}

void Gather(TComponent& component, QList<TComponent*>& found)
{
    for (auto* inner : component.Components()) {
        found << inner;
        Gather(*inner, found);
    }
}

}

void LiveForm::Build(const FormLinks::FindRoot& otherRoot, Problems& problems)
{
    FormBuilder builder(FSource, FLinks, problems);
    builder.SetText(
        FDocument->Format() == FormFormat::Text ? QByteArrayView(FText) : QByteArrayView(), FDocument->FileName());
    builder.SetBind([this](FormNode& node, TComponent& component) { Bind(node, component); });
    FRoot.reset(builder.Build(*FDocument));
    FLinks.Resolve(*FRoot, otherRoot);
    QList<TComponent*> made;
    Gather(*FRoot, made);
    for (const auto* component : std::as_const(made))
        Know(*component);
    Know(*FRoot);
    TellLoaded(made);
    FRoot->Loaded();
}

void LiveForm::Discard()
{
    if (FRoot)
        FRoot->SetDesignerHook(nullptr);
    FNodes.clear();
    FComponents.clear();
    FLinks = {};
    FKnown.clear();
    FRoot.reset();
}

bool LiveForm::Holds(const TComponent* component) const
{
    for (auto* walk = component; walk; walk = walk->Owner())
        if (walk == FRoot.get())
            return true;
    return false;
}

void LiveForm::Bind(FormNode& node, TComponent& component)
{
    FKnown.insert(&component);
    FNodes.insert(&component, &node);
    FComponents.insert(&node, &component);
}

void LiveForm::Unbind(const TComponent& component)
{
    for (const auto* inner : component.Components())
        Unbind(*inner);
    FKnown.remove(&component);
    if (auto* node = FNodes.take(&component))
        FComponents.remove(node);
}

// What happens within a collection's item is a change of the collection.
void LiveForm::Touch(FormNode& node, const QString& property)
{
    if (const auto* collection = node.Collection(); collection && node.Parent())
        Touch(*node.Parent(), collection->Name());
    else if (OnTouch)
        OnTouch({ &node, property });
}

namespace {

// What the file nests the component under: its parent, else the form or the frame that owns it.
TComponent* FileParent(const TComponent& component)
{
    auto* parent = component.GetParentComponent();
    return parent ? parent : component.Owner();
}

}

FormNode& LiveForm::ParentNode(TComponent& component)
{
    auto* parent = FileParent(component);
    return parent ? NeedNode(*parent) : FDocument->Root();
}

FormNode& LiveForm::NeedNode(TComponent& component)
{
    if (auto* node = NodeOf(&component))
        return *node;
    auto& parent = ParentNode(component);
    auto& made = FDocument->AddChild(parent, FormNode::Kind::Inherited, component.ClassName(), component.Name());
    Bind(made, component);
    Touch(made, {});
    return made;
}

namespace {

// Whether a property that no default is known of is written for a component that was just made: its place, and what is
// not as it would be with nobody's doing.
bool BelongsToNew(const TComponent& component, const TPropInfo& property)
{
    for (const auto* place : { "Left", "Top", "Width", "Height" })
        if (property.Name == QLatin1String(place))
            return true;
    const auto value = property.Get(&component);
    switch (property.PropType.Kind) {
    case tkInteger:
    case tkInt64:
    case tkFloat:
        return value.toDouble() != 0;
    case tkEnumeration:
        return value.typeId() == QMetaType::Bool ? value.toBool()
                                                 : value.toString() != property.PropType.EnumNames.value(0);
    default:
        return true;
    }
}

}

void LiveForm::AddNode(TComponent& component, TComponent* fileParent)
{
    OnEdit();
    auto& parent = fileParent ? NeedNode(*fileParent) : ParentNode(component);
    const auto kind = component.HasState(csInline) ? FormNode::Kind::Inline : FormNode::Kind::Object;
    auto& node = FDocument->AddChild(parent, kind, component.ClassName(), component.Name());
    Bind(node, component);
    Touch(node, {});
    const auto set = component.StoredValueNames();
    for (const auto* property : GetPropList(component.ClassType(), {}, false))
        if (property->Default.isValid() || property->IsSubObject || set.contains(property->Name)
            || BelongsToNew(component, *property))
            WriteProperty(component, property->Name, nullptr);
    const bool isPlaced = !fileParent && !component.GetParentComponent();
    if (isPlaced && !GetPropInfo(&component, QStringLiteral("Left"))) {
        WriteProperty(component, QStringLiteral("Left"), nullptr);
        WriteProperty(component, QStringLiteral("Top"), nullptr);
    }
}

void LiveForm::RemoveNode(TComponent& component)
{
    auto* node = NodeOf(&component);
    Unbind(component);
    if (!node || !IsInFile(*node))
        return;
    OnEdit();
    Touch(*node, {});
    FDocument->Remove(*node);
}

void LiveForm::RenameNode(TComponent& component)
{
    auto* node = NodeOf(&component);
    if (!node || node->Name() == component.Name())
        return;
    OnEdit();
    Touch(*node, {});
    FDocument->Rename(*node, component.Name());
}

void LiveForm::OrderNode(TComponent& component, const QList<TComponent*>& siblings, const QList<TComponent*>& inherited)
{
    OnEdit();
    if (!inherited.isEmpty())
        return OrderAmongInherited(siblings, inherited);
    auto& node = NeedNode(component);
    const auto at = siblings.indexOf(&component);
    // The neighbour in the list tells the place among all that the parent holds.
    auto* before = at > 0 ? NodeOf(siblings[at - 1]) : nullptr;
    auto* behind = at + 1 < siblings.size() ? NodeOf(siblings[at + 1]) : nullptr;
    Touch(node, {});
    if (before && before->Parent() == node.Parent())
        FDocument->Reorder(node, before->Position() + (node.Position() < before->Position() ? 0 : 1));
    else if (behind && behind->Parent() == node.Parent())
        FDocument->Reorder(node, behind->Position() - (node.Position() < behind->Position() ? 1 : 0));
}

// What does not stand where the ancestor has it, or behind all that the ancestor has, has its place in the file: [n].
// Nodes stand in the order of these places.
void LiveForm::OrderAmongInherited(const QList<TComponent*>& siblings, const QList<TComponent*>& inherited)
{
    auto awaited = inherited;
    for (int i = 0; i < siblings.size(); ++i) {
        const bool inPlace = awaited.isEmpty() || awaited.first() == siblings[i];
        awaited.removeOne(siblings[i]);
        SetPlace(*siblings[i], inPlace ? std::nullopt : std::optional(i));
    }
    const FormNode* before = nullptr;
    for (const auto* sibling : siblings) {
        auto* node = NodeOf(sibling);
        if (!node)
            continue;
        if (before && before->Parent() == node->Parent() && node->Position() < before->Position()) {
            Touch(*node, {});
            FDocument->Reorder(*node, before->Position());
        }
        before = node;
    }
}

void LiveForm::SetPlace(TComponent& component, std::optional<int> place)
{
    const auto* there = NodeOf(&component);
    if (place == (there ? there->Index() : std::nullopt))
        return;
    auto& node = NeedNode(component);
    Touch(node, {});
    FDocument->SetIndex(node, place);
}

void LiveForm::Write(FormNode& node, const QString& property, const FormValue& value)
{
    if (const auto* there = node.Property(property); there && !there->IsCollection() && there->Value() == value)
        return;
    OnEdit();
    Touch(node, property);
    FDocument->SetProperty(node, property, value);
}

void LiveForm::Remove(FormNode& node, const QString& property)
{
    if (!node.Property(property))
        return;
    OnEdit();
    Touch(node, property);
    FDocument->RemoveProperty(node, property);
}

namespace {

void RenamedReference(FormValue& value, const QString& oldName, const QString& newName)
{
    if (value.TheKind() != FormValue::Kind::Identifier)
        return;
    const auto text = value.ToString();
    if (SameText(text, oldName) || text.startsWith(oldName + u'.', Qt::CaseInsensitive))
        value = FormValue::Identifier(newName + text.mid(oldName.size()));
}

bool MayRefer(const TComponent* component, const QString& property)
{
    const auto* info = component ? GetPropInfo(component, property) : nullptr;
    return !info || info->PropType.Kind == tkClass;
}

}

void LiveForm::RenameReferences(const QString& oldName, const QString& newName)
{
    if (!oldName.isEmpty() && !newName.isEmpty())
        RenameReferencesIn(FDocument->Root(), oldName, newName);
}

void LiveForm::RenameReferencesIn(FormNode& node, const QString& oldName, const QString& newName)
{
    const auto* component = ComponentOf(&node);
    for (auto* property : node.Properties()) {
        for (auto* item : property->Items())
            RenameReferencesIn(*item, oldName, newName);
        if (property->IsCollection() || !MayRefer(component, property->Name()))
            continue;
        const auto old = property->Value();
        auto value = old;
        RenamedReference(value, oldName, newName);
        if (!(value == old))
            Write(node, property->Name(), value);
    }
    for (auto* child : node.Children())
        RenameReferencesIn(*child, oldName, newName);
}

void LiveForm::RenameClass(const QString& oldClass, const QString& newClass)
{
    if (oldClass != newClass)
        RenameClassIn(FDocument->Root(), oldClass, newClass);
}

void LiveForm::RenameClassIn(FormNode& node, const QString& oldClass, const QString& newClass)
{
    if (SameText(node.ClassName(), oldClass)) {
        OnEdit();
        Touch(node, {});
        FDocument->SetClassName(node, newClass);
        TakeClass(node);
    }
    for (auto* child : node.Children())
        RenameClassIn(*child, oldClass, newClass);
}

void LiveForm::TakeClass(const FormNode& node)
{
    auto* component = ComponentOf(&node);
    const bool tellsClass = node.TheKind() != FormNode::Kind::Inherited || component == FRoot.get();
    if (component && tellsClass && component->ClassName() != node.ClassName())
        component->SetDynamicClass(
            FormClasses::Declared(node.ClassName(), component->ClassType().ClassParent(), FSource.ClassGroup()));
}

bool LiveForm::IsInFile(const FormNode& node) const
{
    for (const auto* walk = &node; walk; walk = walk->Parent())
        if (walk == &FDocument->Root())
            return true;
    return false;
}

// What frames hold beside them, all of it known from now on.
QList<TComponent*> LiveForm::WithInner(const QList<TComponent*>& made)
{
    QList<TComponent*> inner;
    for (auto* component : made)
        Gather(*component, inner);
    auto all = made;
    for (auto* component : std::as_const(inner))
        if (!all.contains(component))
            all << component;
    for (const auto* component : std::as_const(all))
        Know(*component);
    return all;
}

QList<TComponent*> LiveForm::BuildNode(FormNode& node, const FormLinks::FindRoot& otherRoot)
{
    auto* parentNode = node.Parent();
    auto* parent = ComponentOf(parentNode);
    if (!parent)
        return {};
    auto* owner = parent;
    while (owner != FRoot.get() && !owner->HasState(csInline))
        owner = owner->Owner();
    QList<TComponent*> made;
    FormBuilder builder(FSource, FLinks, FLateProblems);
    builder.SetBind([this, &made](FormNode& inner, TComponent& component) {
        Bind(inner, component);
        made << &component;
    });
    builder.BuildChild(node, *parent, *owner);
    FLinks.Resolve(*FRoot, otherRoot);
    TellLoaded(WithInner(made));
    return made;
}

TComponent* LiveForm::BuildInheritedFrame(FormNode& ancestors, TComponent& parent, const FormLinks::FindRoot& otherRoot)
{
    FormBuilder builder(FSource, FLinks, FLateProblems);
    auto* made = builder.BuildInherited(ancestors, parent, *FRoot);
    if (!made)
        return nullptr;
    FLinks.Resolve(*FRoot, otherRoot);
    TellLoaded(WithInner({ made }));
    return made;
}

bool LiveForm::ReadProperty(const FormNode& node, const QString& property, const FormLinks::FindRoot& otherRoot)
{
    auto* component = ComponentOf(&node);
    const auto* line = node.Property(property);
    if (!component || !line)
        return false;
    auto* scope = component->Owner() && component->Owner()->HasState(csInline) ? component->Owner() : FRoot.get();
    const FormProperties::Taking taking(*component);
    const auto place = FormProperties::Find(*component, property);
    FLinks.Forget(place.Instance, place.Name);
    FormProperties::Read(*component, *line, *scope, FLinks);
    FLinks.Resolve(*FRoot, otherRoot);
    return true;
}

bool LiveForm::ReadFromFrame(TComponent& component, const QString& property, const FormLinks::FindRoot& otherRoot)
{
    auto* frame = component.HasState(csInline) ? &component : component.Owner();
    const auto* document = frame && frame->HasState(csInline) ? FSource.DocumentOf(frame->ClassName()) : nullptr;
    const auto* node = !document ? nullptr : frame == &component ? &document->Root() : document->Find(component.Name());
    const auto* line = node ? node->Property(property) : nullptr;
    if (!line)
        return false;
    FormProperties::Read(component, *line, *frame, FLinks);
    FLinks.Resolve(*FRoot, otherRoot);
    return true;
}
