#include "data/TCustomZADataSet.h"

#include "classes/TClassBuilder.h"
#include "data/DataRoles.h"
#include "data/StatementParts.h"
#include "data/StatementText.h"
#include "data/TCustomZAConnection.h"
#include "data/TDataSource.h"
#include "data/TField.h"

#include <QSet>

TClass TCustomZADataSet::Class()
{
    static TClassInfo info;
    static const TClass made
        = TClassBuilder<TCustomZADataSet>(info, QStringLiteral("TCustomZADataSet"), TDataSet::Class())
              .Unit(QStringLiteral("ZADataSet"))
              .Made();
    return made;
}

TCustomZADataSet::TCustomZADataSet(TComponent* owner)
    : TDataSet(owner)
{
}

TCustomZADataSet::~TCustomZADataSet()
{
    Destroying();
    TakeConnection(nullptr);
}

void TCustomZADataSet::SetConnection(TCustomZAConnection* connection)
{
    SetConnectionOf(*this, connection);
}

void TCustomZADataSet::TakeConnection(TCustomZAConnection* connection)
{
    if (connection == FConnection)
        return;
    if (FConnection)
        FConnection->FDataSets.remove(FConnection->FDataSets.lastIndexOf(this));
    FConnection = connection;
    if (FConnection)
        FConnection->FDataSets << this;
}

TDataSource* TCustomZADataSet::MasterSource() const
{
    return dynamic_cast<TDataSource*>(ReferenceAt(*this, GetDataSetRoles(ClassType()).MasterSource));
}

namespace {

// A master follows nobody's fields by accident: the value counts only while the master shows rows.
QVariant MasterValue(const TDataSet* master, const QString& fieldName)
{
    const auto* field = master && master->IsOpen() ? master->FindField(fieldName.trimmed()) : nullptr;
    return field ? field->Value() : QVariant();
}

QStringList FieldNames(const QString& list)
{
    QStringList names;
    for (const auto& name : list.split(u';', Qt::SkipEmptyParts))
        names << name.trimmed();
    return names;
}

// Parameters that the text has and the collection lacks.
void CompleteParameters(TStatement& statement)
{
    QSet<QString> known;
    for (const auto& parameter : std::as_const(statement.Parameters))
        known << parameter.Name.toLower();
    for (const auto& name : ParseStatement(statement.Text).Names)
        if (!known.contains(name.toLower())) {
            known << name.toLower();
            statement.Parameters.append({ name, ftUnknown, {} });
        }
}

bool IsParameterOf(const TStatement& statement, const QString& name)
{
    return std::any_of(statement.Parameters.begin(), statement.Parameters.end(),
        [&name](const TStatementParameter& parameter) { return SameText(parameter.Name, name); });
}

// The detail fields with the master's values, but for those that the statement takes as parameters.
void AddMasterFilter(
    TStatement& statement, const TDataSet& master, const QStringList& fields, const QStringList& details)
{
    for (qsizetype i = 0; i < fields.size(); ++i)
        if (!IsParameterOf(statement, fields[i]))
            statement.Filter.append({ details.value(i, fields[i]), MasterValue(&master, fields[i]) });
}

}

TStatement TCustomZADataSet::Statement() const
{
    const auto& roles = GetDataSetRoles(ClassType());
    auto statement = StatementOf(*this, roles);
    if (statement.Kind == TStatement::Sql)
        CompleteParameters(statement);
    const auto* source = MasterSource();
    const auto* master = source ? source->DataSet() : nullptr;
    for (auto& parameter : statement.Parameters)
        if (const auto value = MasterValue(master, parameter.Name); value.isValid())
            parameter.Value = value;
    if (master && master->IsOpen() && statement.Kind != TStatement::Procedure)
        AddMasterFilter(statement, *master, FieldNames(TextAtPlaces(*this, { roles.MasterFields })),
            FieldNames(TextAtPlaces(*this, { roles.DetailFields })));
    return statement;
}

TCustomZAConnection& TCustomZADataSet::NeedConnection() const
{
    if (!FConnection)
        throw EDatabaseError(QStringLiteral("%1: no connection is assigned").arg(Name()));
    return *FConnection;
}

IDataAccess& TCustomZADataSet::NeedAccess() const
{
    if (auto* access = DataAccess())
        return *access;
    throw EDatabaseError(QStringLiteral("%1: nothing here reaches databases").arg(Name()));
}

namespace {

// What goes wrong is told with the dataset's name in front.
template <class Work>
auto ToldWith(const QString& name, const Work& work)
{
    try {
        return work();
    } catch (const EDatabaseError& error) {
        throw EDatabaseError(name + QLatin1String(": ") + error.Message());
    }
}

}

void TCustomZADataSet::UseOwnTypes(QList<TDataColumn>& columns) const
{
    const auto& own = GetDataSetRoles(ClassType()).FieldTypes;
    for (auto& column : columns) {
        const auto name = own.value(GetEnumName(FieldTypeInfo(), column.DataType));
        if (const int type = GetEnumValue(FieldTypeInfo(), name); type >= 0)
            column.DataType = TFieldType(type);
    }
}

bool TCustomZADataSet::DescribeColumns(QList<TDataColumn>& columns)
{
    auto& connection = NeedConnection();
    auto& access = NeedAccess();
    columns = ToldWith(Name(), [&] { return access.Describe(connection, Statement()); });
    UseOwnTypes(columns);
    return true;
}

TRowSet TCustomZADataSet::ReadRows()
{
    auto& connection = NeedConnection();
    auto& access = NeedAccess();
    auto rows
        = ToldWith(Name(), [&] { return access.Query(connection, Statement(), MaxPreviewRows, QueryCancelled()); });
    UseOwnTypes(rows.Columns);
    return rows;
}

void TCustomZADataSet::ForgetDefinitions()
{
    if (FieldDefs().Described())
        FieldDefs().SetUpdated(false);
}

void TCustomZADataSet::PropertyChanged(const QString& property)
{
    TDataSet::PropertyChanged(property);
    if (HasState(csDestroying))
        return;
    const auto& roles = GetDataSetRoles(ClassType());
    const auto is = [&property](const QString& role) { return !role.isEmpty() && SameText(property, role); };
    if (is(roles.Connection))
        TakeConnection(dynamic_cast<TCustomZAConnection*>(ReferenceAt(*this, roles.Connection)));
    if (is(roles.Connection) || is(roles.SQL) || is(roles.Table) || is(roles.Procedure) || is(roles.CommandType))
        ForgetDefinitions();
}
