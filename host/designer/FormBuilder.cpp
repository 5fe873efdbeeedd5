#include "designer/FormBuilder.h"

#include "classes/Forms.h"
#include "designer/DataKinds.h"
#include "designer/FormClasses.h"
#include "designer/FormProperties.h"
#include "rtl/SysUtils.h"

FormBuilder::FormBuilder(FormClassSource& source, FormLinks& links, Problems& problems)
    : FSource(source)
    , FLinks(links)
    , FProblems(problems)
{
}

void FormBuilder::SetText(QByteArrayView text, const QString& fileName)
{
    FText = text;
    FFileName = fileName;
}

TComponent* FormBuilder::Build(FormDocument& document)
{
    auto& node = document.Root();
    const auto className = node.ClassName();
    const auto declared = FormClasses::Declared(className, RootBase(document, className), FSource.ClassGroup());
    auto* root = Make(declared, nullptr);
    ApplyAncestors(document, *root, Layer::Ancestor);
    Prepare(node, *root, nullptr, Layer::Own);
    root->SetComponentState(csDesigning | csLoading);
    Apply(node, *root, *root, Layer::Own);
    return root;
}

TComponent* FormBuilder::BuildChild(FormNode& node, TComponent& parent, TComponent& owner)
{
    auto* made = Child(node, parent, owner, Layer::Own);
    if (made)
        Apply(node, *made, made->HasState(csInline) ? *made : owner, Layer::Own);
    return made;
}

TComponent* FormBuilder::BuildInherited(FormNode& node, TComponent& parent, TComponent& owner)
{
    auto* made = Child(node, parent, owner, Layer::Ancestor);
    if (made)
        Apply(node, *made, made->HasState(csInline) ? *made : owner, Layer::Ancestor);
    return made;
}

namespace {

TClass GuessedBase(const FormNode& node, const QString& group)
{
    const bool hasClient = node.Property(u"ClientHeight") || node.Property(u"ClientWidth") || node.Property(u"Caption");
    const auto* name = hasClient || !node.Property(u"Height") || node.Property(u"Color") ? "TForm" : "TDataModule";
    return FormClasses::Known(QString::fromLatin1(name), group);
}

}

// The class that the form's own class ends in when every form of the project between is passed over.
TClass FormBuilder::RootBase(FormDocument& document, const QString& className)
{
    const auto group = FSource.ClassGroup();
    QSet<QString> passed;
    auto* walk = &document;
    for (auto name = className; walk && !passed.contains(name.toLower());) {
        passed << name.toLower();
        const auto ancestor = FSource.AncestorOf(name);
        if (const auto known = FormClasses::Known(ancestor, group); known && !ancestor.isEmpty())
            return known;
        auto* next = ancestor.isEmpty() ? nullptr : FSource.DocumentOf(ancestor);
        if (!next)
            break;
        walk = next;
        name = ancestor;
    }
    const auto guessed = GuessedBase(walk->Root(), group);
    return guessed ? guessed : TForm::Class();
}

void FormBuilder::ApplyAncestors(FormDocument& document, TComponent& root, Layer layer)
{
    QList<FormDocument*> layers;
    QSet<FormDocument*> passed { &document };
    auto className = document.Root().ClassName();
    for (auto* walk = &document; walk->Root().TheKind() == FormNode::Kind::Inherited;) {
        className = FSource.AncestorOf(className);
        walk = className.isEmpty() ? nullptr : FSource.DocumentOf(className);
        if (!walk || passed.contains(walk)) {
            Report(document.Root(),
                className.isEmpty()
                    ? QStringLiteral("the unit does not say what the form inherits from")
                    : QStringLiteral("%1, which the form inherits from, is no form of the project").arg(className));
            break;
        }
        passed << walk;
        layers.prepend(walk);
    }
    for (auto* ancestor : std::as_const(layers))
        Apply(ancestor->Root(), root, root, layer);
}

namespace {

// A field that stands elsewhere than behind those before it.
void TakePlace(const FormNode& node, TComponent& component)
{
    if (const auto place = node.Index(); place && DataKinds::IsField(component))
        SetPropValue(&component, QStringLiteral("Index"), *place);
}

}

void FormBuilder::Apply(FormNode& node, TComponent& component, TComponent& owner, Layer layer)
{
    if (layer == Layer::Own && FBind)
        FBind(node, component);
    ReadProperties(node, component, owner);
    for (auto* inner : node.Children())
        if (auto* made = Child(*inner, component, owner, layer)) {
            Apply(*inner, *made, made->HasState(csInline) ? *made : owner, layer);
            TakePlace(*inner, *made);
        }
}

void FormBuilder::ReadProperties(const FormNode& node, TComponent& component, TComponent& scope)
{
    for (const auto* property : node.Properties())
        FormProperties::Read(component, *property, scope, FLinks);
    if (auto* control = dynamic_cast<TControl*>(&component))
        if (const auto* places = FSource.GeometryOf(component.ClassType()))
            FormProperties::ReadBounds(*control, node, *places);
}

TComponent* FormBuilder::Child(FormNode& node, TComponent& parent, TComponent& owner, Layer layer)
{
    if (node.TheKind() == FormNode::Kind::Inherited) {
        if (auto* found = owner.FindComponent(node.Name()))
            return found;
        Report(node, QStringLiteral("%1 is inherited, but the ancestor has no such component").arg(node.Name()));
        layer = Layer::Ancestor;
    }
    auto* made = node.TheKind() == FormNode::Kind::Inline ? MakeFrame(node, owner) : Make(ClassOf(node), &owner);
    Prepare(node, *made, &parent, layer);
    return made;
}

TComponent* FormBuilder::MakeFrame(FormNode& node, TComponent& owner)
{
    const auto className = node.ClassName();
    auto* document = FOpenFrames.contains(className, Qt::CaseInsensitive) ? nullptr : FSource.DocumentOf(className);
    if (!document) {
        Report(node, QStringLiteral("the frame %1 is not in the project").arg(className));
        auto base = FormClasses::Known(QStringLiteral("TFrame"), FSource.ClassGroup());
        auto* made
            = Make(FormClasses::Declared(className, base ? base : TFrame::Class(), FSource.ClassGroup()), &owner);
        made->SetComponentState(made->ComponentState() | csInline);
        return made;
    }
    auto base = FormClasses::Known(FSource.AncestorOf(className), FSource.ClassGroup());
    if (!base)
        base = FormClasses::Known(QStringLiteral("TFrame"), FSource.ClassGroup());
    auto* made = Make(FormClasses::Declared(className, base ? base : TFrame::Class(), FSource.ClassGroup()), &owner);
    made->SetComponentState(made->ComponentState() | csInline);
    FOpenFrames << className;
    ApplyAncestors(*document, *made, Layer::Frame);
    Apply(document->Root(), *made, *made, Layer::Frame);
    FOpenFrames.removeLast();
    return made;
}

namespace {

FormClasses::Shape ShapeOf(const FormNode& node)
{
    if (!node.Property(u"Left") && !node.Property(u"Align") && !node.Property(u"Position.X"))
        return FormClasses::Shape::Component;
    if (!node.Property(u"Width") && !node.Property(u"Height") && !node.Property(u"Size.Width"))
        return FormClasses::Shape::Component;
    return node.Children().empty() ? FormClasses::Shape::Control : FormClasses::Shape::Container;
}

}

TClass FormBuilder::ClassOf(const FormNode& node)
{
    const auto name = node.ClassName();
    auto& known = FClasses[name];
    if (!known)
        known = FormClasses::Known(name, FSource.ClassGroup());
    if (known && !known.IsAbstract())
        return known;
    if (known)
        return FormClasses::Declared(name, known, FSource.ClassGroup());
    if (!FReported.contains(name)) {
        FReported << name;
        Report(node, QStringLiteral("class %1 is not installed; its components are kept as they are").arg(name));
    }
    return FormClasses::Placeholder(name, FSource.ClassGroup(), ShapeOf(node));
}

TComponent* FormBuilder::Make(TClass aClass, TComponent* owner)
{
    auto* made = dynamic_cast<TComponent*>(aClass.Create(owner));
    made->SetComponentState(csDesigning | csLoading);
    return made;
}

void FormBuilder::Prepare(FormNode& node, TComponent& component, TComponent* parent, Layer layer)
{
    auto state = component.ComponentState() | csDesigning | csLoading;
    if (layer != Layer::Own)
        state |= csAncestor;
    component.SetComponentState(state);
    Name(node, component);
    if (parent)
        component.SetParentComponent(parent);
}

void FormBuilder::Name(FormNode& node, TComponent& component)
{
    try {
        component.SetName(node.Name());
    } catch (const EComponentError& error) {
        Report(node, error.Message());
    }
}

void FormBuilder::Report(const FormNode& node, const QString& text)
{
    Problem problem { FFileName, 0, 0, text, Problem::Warning };
    const auto bytes = node.TheHeader().Bytes;
    const auto* start = FText.data();
    if (bytes.data() >= start && bytes.data() < start + FText.size()) {
        auto at = bytes.data() - start;
        while (at < FText.size() && (FText[at] == ' ' || FText[at] == '\t'))
            ++at;
        const auto before = FText.first(at);
        const auto lineStart = before.lastIndexOf('\n') + 1;
        problem.Line = int(before.count('\n')) + 1;
        problem.Column = int(at - lineStart) + 1;
    }
    FProblems << problem;
}
