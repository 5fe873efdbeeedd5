#include "data/TField.h"

#include "classes/TClassBuilder.h"
#include "data/ObjectFields.h"
#include "data/PropertyTypes.h"
#include "data/TDataSet.h"

TClass TField::Class()
{
    static TClassInfo info;
    static const TClass made = [] {
        TClassBuilder<TField> table(info, QStringLiteral("TField"), TComponent::Class());
        table.Unit(QStringLiteral("Data.DB"))
            .Property(QStringLiteral("FieldName"), &TField::FieldName, &TField::SetFieldName, QString())
            .Enumeration(QStringLiteral("FieldKind"), FieldKindInfo(), &TField::FieldKind, &TField::SetFieldKind,
                QStringLiteral("fkData"))
            .Property(QStringLiteral("Index"), &TField::Index, &TField::SetIndex)
            .StoredIf([](const TField&) { return false; })
            .Property(QStringLiteral("DisplayLabel"), &TField::DisplayLabel, &TField::SetDisplayLabel, QString())
            .Property(QStringLiteral("Origin"), &TField::Origin, &TField::SetOrigin, QString())
            .Property(QStringLiteral("ReadOnly"), &TField::ReadOnly, &TField::SetReadOnly, false)
            .Property(QStringLiteral("Required"), &TField::Required, &TField::SetRequired, false)
            .Property(QStringLiteral("Visible"), &TField::Visible, &TField::SetVisible, true)
            .Stored(QStringLiteral("Alignment"),
                EnumerationType(QStringLiteral("TAlignment"), QStringLiteral("taLeftJustify taRightJustify taCenter")),
                QStringLiteral("taLeftJustify"))
            .Stored(QStringLiteral("AutoGenerateValue"),
                EnumerationType(QStringLiteral("TAutoRefreshFlag"), QStringLiteral("arNone arAutoInc arDefault")),
                QStringLiteral("arNone"))
            .Stored(QStringLiteral("DisplayWidth"), IntegerType(), 0)
            .Stored(QStringLiteral("LookupDataSet"), ReferenceType(QStringLiteral("TDataSet")),
                QVariant::fromValue<TPersistent*>(nullptr))
            .Stored(QStringLiteral("ProviderFlags"),
                SetType(QStringLiteral("TProviderFlags"), QStringLiteral("pfInUpdate pfInWhere pfInKey pfHidden")),
                QStringList { QStringLiteral("pfInUpdate"), QStringLiteral("pfInWhere") });
        for (const auto* text : { "ConstraintErrorMessage", "CustomConstraint", "DefaultExpression",
                 "ImportedConstraint", "KeyFields", "LookupKeyFields", "LookupResultField" })
            table.Stored(QString::fromLatin1(text), StringType(), QString());
        for (const auto* flag : { "HasConstraints", "Lookup", "LookupCache", "Calculated" })
            table.Stored(QString::fromLatin1(flag), BooleanType(), false);
        for (const auto* event : { "OnChange", "OnGetText", "OnSetText", "OnValidate" })
            table.Stored(QString::fromLatin1(event), EventType(QStringLiteral("TFieldNotifyEvent")), QString());
        return table.Made();
    }();
    return made;
}

TField::TField(TComponent* owner)
    : TComponent(owner)
{
}

TField::TField(TComponent* owner, TFieldType dataType, int size)
    : TComponent(owner)
    , FSize(size)
    , FDataType(dataType)
{
}

TField::~TField()
{
    Leave();
}

void TField::Leave()
{
    auto* left = DataSet();
    if (FFields)
        FFields->Remove(this);
    FDataSet = nullptr;
    FParentField = nullptr;
    FColumn = -1;
    if (left)
        left->DataEvent(deFieldListChange, 0);
}

TDataSet* TField::DataSet() const
{
    return FParentField ? FParentField->DataSet() : FDataSet;
}

void TField::SetDataSet(TDataSet* dataSet)
{
    if (dataSet == FDataSet && !FParentField)
        return;
    Leave();
    if (!dataSet)
        return;
    FDataSet = dataSet;
    dataSet->Fields().Add(this);
    dataSet->DataEvent(deFieldListChange, 0);
}

void TField::SetParentField(TObjectField* parent)
{
    if (parent == FParentField)
        return;
    Leave();
    if (!parent)
        return;
    FParentField = parent;
    parent->Fields().Add(this);
    if (auto* dataSet = DataSet())
        dataSet->DataEvent(deFieldListChange, 0);
}

TComponent* TField::GetParentComponent() const
{
    return FParentField ? static_cast<TComponent*>(FParentField) : FDataSet;
}

void TField::SetParentComponent(TComponent* parent)
{
    if (auto* object = dynamic_cast<TObjectField*>(parent))
        SetParentField(object);
    else
        SetDataSet(dynamic_cast<TDataSet*>(parent));
}

void TField::SetFieldName(const QString& fieldName)
{
    if (fieldName == FFieldName)
        return;
    auto* same = FFields && !HasState(csLoading) ? FFields->FindField(fieldName) : nullptr;
    if (same && same != this)
        throw EDatabaseError(QStringLiteral("Duplicate field name '%1'").arg(fieldName));
    FFieldName = fieldName;
    if (FFields)
        FFields->NamesChanged();
    Changed(QStringLiteral("FieldName"));
    if (auto* dataSet = DataSet())
        dataSet->DataEvent(deFieldListChange, 0);
}

QString TField::FullName() const
{
    if (!FParentField)
        return FFieldName;
    if (FParentField->DataType() == ftArray)
        return QStringLiteral("%1[%2]").arg(FParentField->FullName()).arg(Index());
    return FParentField->FullName() + u'.' + FFieldName;
}

void TField::SetIndex(int index)
{
    if (!FFields)
        return;
    index = std::clamp(index, 0, FFields->Count() - 1);
    if (index == Index())
        return;
    FFields->Move(this, index);
    Changed(QStringLiteral("Index"));
    if (auto* dataSet = DataSet())
        dataSet->DataEvent(deFieldListChange, 0);
}

int TField::FieldNo() const
{
    auto* dataSet = DataSet();
    if (!dataSet || FFieldKind != fkData)
        return 0;
    const auto* def = dataSet->FieldDefList().Find(FullName());
    return def ? def->FieldNo() : 0;
}

void TField::SetFieldKind(TFieldKind kind)
{
    if (std::exchange(FFieldKind, kind) != kind)
        Changed(QStringLiteral("FieldKind"));
}

void TField::SetSize(int size)
{
    if (std::exchange(FSize, size) != size)
        Changed(QStringLiteral("Size"));
}

void TField::SetPrecision(int precision)
{
    if (std::exchange(FPrecision, precision) != precision)
        Changed(QStringLiteral("Precision"));
}

void TField::SetRequired(bool required)
{
    if (std::exchange(FRequired, required) != required)
        Changed(QStringLiteral("Required"));
}

void TField::SetReadOnly(bool readOnly)
{
    if (std::exchange(FReadOnly, readOnly) != readOnly)
        Changed(QStringLiteral("ReadOnly"));
}

void TField::SetVisible(bool visible)
{
    if (std::exchange(FVisible, visible) != visible)
        Changed(QStringLiteral("Visible"));
}

QString TField::DisplayName() const
{
    const auto label = DisplayLabel();
    return label.isEmpty() ? FFieldName : label;
}

QString TField::DisplayLabel() const
{
    return StoredValue(QStringLiteral("DisplayLabel"), QString()).toString();
}

void TField::SetDisplayLabel(const QString& label)
{
    SetStoredValue(QStringLiteral("DisplayLabel"), label);
}

int TField::DisplayWidth() const
{
    const int stored = StoredValue(QStringLiteral("DisplayWidth"), 0).toInt();
    return stored > 0 ? stored : DefaultDisplayWidth();
}

QString TField::Origin() const
{
    return StoredValue(QStringLiteral("Origin"), QString()).toString();
}

void TField::SetOrigin(const QString& origin)
{
    SetStoredValue(QStringLiteral("Origin"), origin);
}

void TField::AssignDef(const TFieldDef& def)
{
    if (GetPropInfo(this, QStringLiteral("Size")) && def.Size() > 0)
        SetSize(def.Size());
    if (GetPropInfo(this, QStringLiteral("Precision")) && def.Precision() > 0)
        SetPrecision(def.Precision());
    SetRequired(def.Required());
    SetReadOnly(def.Attributes().testFlag(faReadonly));
}

QVariant TField::Value() const
{
    auto* dataSet = DataSet();
    return dataSet && FColumn >= 0 ? dataSet->ColumnValue(FColumn) : QVariant();
}

QString TField::DisplayText() const
{
    const auto value = Value();
    return value.isNull() ? QString() : value.toString();
}
