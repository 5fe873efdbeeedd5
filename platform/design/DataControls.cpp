#include "design/DataControls.h"

#include "data/TDataSetDesigner.h"
#include "data/TDataSource.h"
#include "data/TField.h"
#include "rtl/SysUtils.h"

#include <QHash>

namespace {

// What a label and a data source measure, in designer pixels.
constexpr int LabelSize = 10;
constexpr int LabelGap = 3;
constexpr int SourceSize = 30;
constexpr int SourceLeft = 18;
constexpr int SourceTop = 23;

QHash<QString, QString>& FieldControls()
{
    static QHash<QString, QString> controls;
    return controls;
}

// The control that was registered for the class or its nearest ancestor.
QString ControlOf(TClass fieldClass)
{
    for (auto walk = fieldClass; walk; walk = walk.ClassParent())
        if (const auto found = FieldControls().constFind(walk.ClassName().toLower()); found != FieldControls().cend())
            return *found;
    return {};
}

TClass InstalledClass(const QString& className)
{
    const auto found = GetClass(className);
    if (!found || found.IsAbstract())
        throw EClassNotFound(Format(QStringLiteral("Visual control %s is not installed in IDE"), { className }));
    return found;
}

TDataSource* SourceOn(TComponent* root, const TDataSet* dataSet)
{
    if (!root)
        return nullptr;
    for (auto* component : root->Components()) {
        auto* source = dynamic_cast<TDataSource*>(component);
        if (source && source->DataSet() == dataSet)
            return source;
    }
    return nullptr;
}

TDataSource* NeedSource(const InterfacePtr<IDesigner>& designer, TDataSet* dataSet, TComponent* parent, int x, int y)
{
    if (auto* source = SourceOn(dataSet->Owner(), dataSet))
        return source;
    if (auto* source = SourceOn(designer->GetRoot(), dataSet))
        return source;
    auto* made = designer->CreateComponent(
        TDataSource::Class(), parent, x + SourceLeft, y + SourceTop, SourceSize, SourceSize);
    auto* source = dynamic_cast<TDataSource*>(made);
    if (!source)
        throw EInvalidOperation(QStringLiteral("The form takes no data source"));
    source->SetDataSet(dataSet);
    designer->Modified();
    return source;
}

// Where the control goes below its label.
int MakeLabel(const InterfacePtr<IDesigner>& designer, const QString& caption, TComponent* parent, int x, int y)
{
    auto* made
        = designer->CreateComponent(InstalledClass(QStringLiteral("TLabel")), parent, x, y, LabelSize, LabelSize);
    auto* label = dynamic_cast<TControl*>(made);
    if (!label)
        return 0;
    if (GetPropInfo(label, QStringLiteral("Caption")))
        SetStrProp(label, QStringLiteral("Caption"), caption);
    return label->Height() + LabelGap;
}

void Bind(TControl* control, TDataSource* source, const QString& fieldName)
{
    SetClassProp(control, QStringLiteral("DataSource"), TDataSource::Class(), source);
    if (GetPropInfo(control, QStringLiteral("DataField")))
        SetStrProp(control, QStringLiteral("DataField"), fieldName);
}

QSize SizeOf(TClass controlClass)
{
    const std::unique_ptr<TPersistent> sample(controlClass.Create(nullptr));
    const auto* control = dynamic_cast<TControl*>(sample.get());
    return control ? control->Bounds().size() : QSize();
}

}

TControl* CreateFieldControl(const InterfacePtr<IDesigner>& designer, TField* field, const QString& controlClassName,
    TComponent* parent, int x, int y, bool withLabel)
{
    const auto controlClass = CreateControlClass(field->DataSet(), field->FullName(), controlClassName);
    auto* source = NeedSource(designer, field->DataSet(), parent, x, y);
    const bool isPlaced = x != -1 || y != -1;
    const int offset = withLabel ? MakeLabel(designer, field->DisplayName(), parent, x, y) : 0;
    const auto size = SizeOf(controlClass);
    auto* control = dynamic_cast<TControl*>(
        designer->CreateComponent(controlClass, parent, x, isPlaced ? y + offset : y, size.width(), size.height()));
    if (!control)
        throw EInvalidCast(QStringLiteral("%1 is no control").arg(controlClass.ClassName()));
    Bind(control, source, field->FieldName());
    designer->Modified();
    return control;
}

TClass CreateControlClass(TDataSet* dataSet, const QString& fieldName, const QString& controlClassName)
{
    if (!controlClassName.isEmpty())
        return InstalledClass(controlClassName);
    auto* field = dataSet ? dataSet->FindField(fieldName) : nullptr;
    const auto* designer = field ? dynamic_cast<TDSDesigner*>(dataSet->Designer()) : nullptr;
    if (const auto own = designer ? designer->GetControlClass(field) : QString(); !own.isEmpty())
        return InstalledClass(own);
    const auto* def = dataSet && !field ? dataSet->FieldDefList().Find(fieldName) : nullptr;
    return InstalledClass(ControlOf(field ? field->ClassType() : def ? def->FieldClass() : TClass()));
}

void RegisterFieldControl(TClass fieldClass, const QString& controlClassName)
{
    RegisterFieldControl(fieldClass.ClassName(), controlClassName);
}

void RegisterFieldControl(const QString& fieldClassName, const QString& controlClassName)
{
    FieldControls().insert(fieldClassName.toLower(), controlClassName);
}

void SetClassProp(TPersistent* instance, const QString& name, TClass propertyClass, TPersistent* value)
{
    const auto* property = GetPropInfo(instance, name);
    if (!property || property->PropType.Kind != tkClass || !property->Set)
        return;
    // By name: a catalogue may have put a class of the same name over the platform's.
    if (propertyClass.InheritsFromNamed(property->PropType.Name))
        SetObjectProp(instance, name, value);
}

QString SDSLinkForms()
{
    return QStringLiteral(
        "The form '%s' shows data of '%s', whose unit it does not use yet.\n\nAdd that unit to its uses clause?");
}

QString SCantAddToFrame()
{
    return QStringLiteral("Nothing can be added to a frame that stands on a form. Open the frame itself to add to it.");
}

QString SCantDeleteAncestor()
{
    return QStringLiteral(
        "The selection holds a component that comes from an ancestor form or a frame. Delete it there.");
}

QString SFKInternalCalc()
{
    return QStringLiteral("&InternalCalc");
}

QString SFKAggregate()
{
    return QStringLiteral("A&ggregate");
}

QString SListIndexError()
{
    return QStringLiteral("List index out of bounds (%d)");
}
