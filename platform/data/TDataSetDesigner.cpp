#include "data/TDataSetDesigner.h"

#include "data/ObjectFields.h"
#include "rtl/Guard.h"
#include "rtl/SysUtils.h"

TDataSetDesigner::TDataSetDesigner(TDataSet* dataSet)
    : FDataSet(dataSet)
{
    if (!FDataSet)
        return;
    if (auto* earlier = FDataSet->FDesigner)
        earlier->FDataSet = nullptr;
    FDataSet->FDesigner = this;
}

TDataSetDesigner::~TDataSetDesigner()
{
    if (FDataSet)
        FDataSet->FDesigner = nullptr;
}

void TDataSetDesigner::BeginDesign()
{
    FHadRows = FDataSet && FDataSet->SuspendRows();
}

void TDataSetDesigner::EndDesign()
{
    if (std::exchange(FHadRows, false) && FDataSet)
        FDataSet->Open();
}

void TDataSetDesigner::DataEvent(TDataEvent, qintptr) { }

namespace {

QString IdentifierCharacters(const QString& text)
{
    QString kept;
    for (const auto c : text)
        if (c.isLetterOrNumber() || c == u'_')
            kept += c;
    return kept;
}

bool IsTaken(const TComponent* owner, const QString& name)
{
    return owner && (owner->FindComponent(name) || SameText(owner->Name(), name));
}

IFieldDesigner* FieldDesignerOf(const TComponent* owner)
{
    return owner ? dynamic_cast<IFieldDesigner*>(owner->DesignerHook()) : nullptr;
}

TField* CreatePlainField(
    TDataSet* dataSet, TClass fieldClass, const QString& name, const std::function<void(TField*)>& prepare)
{
    auto field = std::unique_ptr<TField>(static_cast<TField*>(fieldClass.Create(nullptr)));
    auto* owner = dataSet->Owner();
    field->SetComponentState(dataSet->ComponentState() & csDesigning);
    if (owner)
        owner->InsertComponent(field.get());
    prepare(field.get());
    field->SetName(name);
    return field.release();
}

// The path of the definition that the one at this path is a child of: "Address" of "Address.City", "Phones" of
// "Phones[0]".
QString ParentPath(const QString& path)
{
    return path.endsWith(u']') ? path.left(path.lastIndexOf(u'['))
                               : path.left(std::max<qsizetype>(0, path.lastIndexOf(u'.')));
}

}

QString UniqueFieldName(const TDataSet& dataSet, const QString& path)
{
    auto base = dataSet.Name() + IdentifierCharacters(path);
    if (base == dataSet.Name())
        base += QLatin1String("Field");
    if (base[0].isDigit())
        base.prepend(u'_');
    auto name = base;
    for (int number = 2; IsTaken(dataSet.Owner(), name); ++number)
        name = base + QString::number(number);
    return name;
}

TField* TDSDesigner::DoCreateField(const QString& fieldName, const QString& origin)
{
    BeginCreateFields();
    const Finally end([this] { EndCreateFields(); });
    auto* def = DataSet()->FieldDefList().Find(fieldName);
    if (!def)
        throw EDatabaseError(QStringLiteral("%1: Field '%2' not found").arg(DataSet()->Name(), fieldName));
    if (!def->FieldClass())
        throw EDatabaseError(QStringLiteral("Field '%1' is of unsupported type %2")
                                 .arg(fieldName, GetEnumName(FieldTypeInfo(), def->DataType())));
    if (DataSet()->FindField(fieldName))
        throw EDatabaseError(QStringLiteral("Duplicate field name '%1'").arg(fieldName));
    auto* parent = NeedParent(*def, fieldName);
    if (auto* cameWithItsParent = DataSet()->FindField(fieldName))
        return cameWithItsParent;
    return CreateFor(*def, fieldName, parent, origin);
}

TObjectField* TDSDesigner::NeedParent(const TFieldDef& def, const QString& path)
{
    const auto* parent = def.ParentDef();
    if (!parent || parent->Attributes().testFlag(faUnNamed))
        return nullptr;
    const auto parentPath = ParentPath(path);
    auto* field = DataSet()->FindField(parentPath);
    if (!field)
        field = CreateFor(*def.ParentDef(), parentPath, NeedParent(*parent, parentPath), {});
    return dynamic_cast<TObjectField*>(field);
}

TField* TDSDesigner::CreateFor(TFieldDef& def, const QString& path, TObjectField* parent, const QString& origin)
{
    const auto prepare = [&](TField* field) {
        if (parent)
            field->SetParentField(parent);
        else
            field->SetDataSet(DataSet());
        field->SetFieldName(def.Name());
        field->AssignDef(def);
        if (!origin.isEmpty())
            field->SetOrigin(origin);
    };
    const auto name = UniqueFieldName(*DataSet(), path);
    auto* designer = FieldDesignerOf(DataSet()->Owner());
    auto* made = designer ? designer->CreateField(DataSet(), def.FieldClass(), name, prepare)
                          : CreatePlainField(DataSet(), def.FieldClass(), name, prepare);
    if (auto* object = dynamic_cast<TObjectField*>(made))
        CreateChildren(def, path, object);
    return made;
}

void TDSDesigner::CreateChildren(TFieldDef& def, const QString& path, TObjectField* parent)
{
    if (!def.HasChildDefs())
        return;
    for (int i = 0; i < def.ChildDefs().Count(); ++i) {
        auto* child = def.ChildDefs().Items(i);
        const auto childPath
            = def.DataType() == ftArray ? QStringLiteral("%1[%2]").arg(path).arg(i) : path + u'.' + child->Name();
        if (child->FieldClass())
            CreateFor(*child, childPath, parent, {});
    }
}

void TDSDesigner::DeleteField(TField* field)
{
    if (auto* designer = FieldDesignerOf(field->Owner()))
        designer->DeleteField(field);
    else
        delete field;
}

QString TDSDesigner::GetControlClass(TField*) const
{
    return {};
}

bool TDSDesigner::SupportsAggregates() const
{
    return DataSet() && DataSet()->SupportsAggregates();
}

bool TDSDesigner::SupportsInternalCalc() const
{
    return SupportsAggregates();
}

void TDSDesigner::InitializeMenu(QMenu*) { }

void TDSDesigner::UpdateMenus(QMenu*) { }
