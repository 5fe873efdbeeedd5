#include "data/TDataSet.h"

#include "classes/TClassBuilder.h"
#include "data/ObjectFields.h"
#include "data/TDataSetDesigner.h"
#include "data/TDataSource.h"
#include "rtl/Guard.h"

TClass TDataSet::Class()
{
    static TClassInfo info;
    static const TClass made
        = TClassBuilder<TDataSet>(info, QStringLiteral("TDataSet"), TComponent::Class())
              .Unit(QStringLiteral("Data.DB"))
              .Property(QStringLiteral("Active"), &TDataSet::StoredActive, &TDataSet::SetStoredActive, false)
              .SubObject(QStringLiteral("FieldDefs"), QStringLiteral("TFieldDefs"),
                  [](TDataSet& dataSet) { return &dataSet.FieldDefs(); })
              .StoredIf([](const TDataSet& dataSet) {
                  return !dataSet.FieldDefs().Described() && dataSet.FieldDefs().Count() > 0;
              })
              .Made();
    return made;
}

TDataSet::TDataSet(TComponent* owner)
    : TComponent(owner)
    , FFieldDefs(this)
    , FFieldDefList(FFieldDefs)
{
}

TDataSet::~TDataSet()
{
    Destroying();
    if (FDesigner)
        FDesigner->FDataSet = nullptr;
    for (const auto sources = FDataSources; auto* source : sources)
        source->SetDataSet(nullptr);
    while (FFields.Count() > 0)
        delete FFields.Fields(FFields.Count() - 1);
}

namespace {

TField* FindIn(const TFields& fields, const QString& fullName)
{
    if (auto* found = fields.FindField(fullName))
        if (SameText(found->FullName(), fullName))
            return found;
    for (auto* field : fields) {
        auto* object = dynamic_cast<TObjectField*>(field);
        if (!object || !fullName.startsWith(object->FullName(), Qt::CaseInsensitive))
            continue;
        if (auto* found = FindIn(object->Fields(), fullName))
            return found;
        for (auto* child : object->Fields())
            if (SameText(child->FullName(), fullName))
                return child;
    }
    return nullptr;
}

}

TField* TDataSet::FindField(const QString& fullName) const
{
    return FindIn(FFields, fullName);
}

TField* TDataSet::FieldByName(const QString& fullName) const
{
    if (auto* found = FindField(fullName))
        return found;
    throw EDatabaseError(QStringLiteral("%1: Field '%2' not found").arg(Name(), fullName));
}

void TDataSet::SetActive(bool active)
{
    if (active == Active())
        return;
    if (!active)
        return Close();
    const bool wasStoredOnly = std::exchange(FClosedForNow, false) && !FHadRows;
    if (wasStoredOnly)
        DataEvent(deDataSetChange, 0);
    else
        Open();
}

void TDataSet::SetStoredActive(bool active)
{
    SetStoredValue(QStringLiteral("Active"), active);
}

// The stored state changed, by whatever road. Nothing is opened for it.
void TDataSet::PropertyChanged(const QString& property)
{
    if (property != QLatin1String("Active"))
        return;
    FClosedForNow = false;
    if (!StoredActive() && FOpen)
        DropRows();
    DataEvent(dePropertyChange, 0);
}

void TDataSet::Open()
{
    if (FOpen)
        return;
    FRows = ReadRows();
    FOpen = true;
    FClosedForNow = false;
    FRecNo = FRows.Rows.isEmpty() ? 0 : 1;
    FBof = true;
    FEof = FRows.Rows.isEmpty();
    BindFields();
    DataEvent(deDataSetChange, 0);
}

void TDataSet::Close()
{
    if (!Active())
        return;
    FClosedForNow = StoredActive();
    FHadRows = FOpen;
    DropRows();
    DataEvent(deDataSetChange, 0);
}

void TDataSet::DropRows()
{
    FOpen = false;
    FRows = {};
    FRecNo = 0;
    FBof = FEof = true;
    UnbindFields();
}

bool TDataSet::SuspendRows()
{
    const bool hadRows = FOpen;
    if (hadRows)
        DropRows();
    return hadRows;
}

TRowSet TDataSet::ReadRows()
{
    throw EDatabaseError(QStringLiteral("%1: a %2 has no rows at design time").arg(Name(), ClassName()));
}

bool TDataSet::DescribeColumns(QList<TDataColumn>&)
{
    return false;
}

void TDataSet::UpdateFieldDefs()
{
    const auto designer = [this] { return dynamic_cast<TDSDesigner*>(FDesigner); };
    if (auto* begun = designer())
        begun->BeginUpdateFieldDefs();
    const Finally end([&designer] {
        if (auto* begun = designer())
            begun->EndUpdateFieldDefs();
    });
    QList<TDataColumn> columns;
    if (DescribeColumns(columns))
        FFieldDefs.Describe(columns);
}

namespace {

QHash<QString, int> ColumnNumbers(const QList<TDataColumn>& columns)
{
    QHash<QString, int> numbers;
    for (int i = int(columns.size()) - 1; i >= 0; --i)
        numbers.insert(columns[i].Name.toLower(), i);
    return numbers;
}

}

void TDataSet::BindFields()
{
    if (FFields.Count() == 0)
        MakeFields();
    const auto numbers = ColumnNumbers(FRows.Columns);
    for (auto* field : FFields)
        field->FColumn = numbers.value(field->FullName().toLower(), -1);
}

void TDataSet::MakeFields()
{
    FOwnFields = true;
    TFieldDefs defs;
    defs.Describe(FRows.Columns);
    for (int i = 0; i < defs.Count(); ++i) {
        const auto fieldClass = defs.Items(i)->FieldClass();
        if (!fieldClass)
            continue;
        auto* field = static_cast<TField*>(fieldClass.Create(this));
        field->SetFieldName(FRows.Columns[i].Name);
        field->AssignDef(*defs.Items(i));
        field->SetDataSet(this);
    }
}

void TDataSet::UnbindFields()
{
    for (auto* field : FFields)
        field->FColumn = -1;
    if (!std::exchange(FOwnFields, false))
        return;
    for (int i = FFields.Count() - 1; i >= 0; --i)
        if (auto* field = FFields.Fields(i); field->Owner() == this)
            delete field;
}

void TDataSet::SetRecNo(int number)
{
    if (number < 1 || number > RecordCount())
        throw EDatabaseError(QStringLiteral("%1: no record %2").arg(Name()).arg(number));
    MoveBy(number - FRecNo);
}

void TDataSet::First()
{
    MoveBy(-RecordCount());
}

void TDataSet::Last()
{
    MoveBy(RecordCount());
}

int TDataSet::MoveBy(int distance)
{
    const int count = int(FRows.Rows.size());
    if (count == 0 || distance == 0)
        return 0;
    const int target = FRecNo + distance;
    const int from = std::exchange(FRecNo, std::clamp(target, 1, count));
    FBof = target < 1;
    FEof = target > count;
    DataEvent(deDataSetScroll, FRecNo - from);
    return FRecNo - from;
}

QVariant TDataSet::ColumnValue(int column) const
{
    return FRecNo > 0 ? FRows.Rows.value(FRecNo - 1).value(column) : QVariant();
}

void TDataSet::DataEvent(TDataEvent event, qintptr info)
{
    for (auto* source : QList(FDataSources))
        if (FDataSources.contains(source))
            source->DataEvent(event, info);
    if (FDesigner)
        FDesigner->DataEvent(event, info);
}

bool TDataSet::SupportsAggregates() const
{
    return GetPropInfo(this, QStringLiteral("Aggregates")) != nullptr;
}
