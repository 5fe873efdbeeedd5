#include "data/TCustomZADataSet.h"

#include "data/DataRoles.h"
#include "data/StatementParts.h"
#include "data/TCustomZAConnection.h"
#include "data/TDataSource.h"
#include "data/TField.h"
#include "rtl/TClassBuilder.h"

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
    return dynamic_cast<TDataSource*>(ReferenceAt(*this, DataSetRoles(ClassType()).MasterSource));
}

namespace {

// A master follows nobody's fields by accident: the value counts only while the master shows rows.
QVariant MasterValue(const TDataSet* master, const QString& fieldName)
{
    const auto* field = master && master->IsOpen() ? master->FindField(fieldName.trimmed()) : nullptr;
    return field ? field->Value() : QVariant();
}

QList<std::pair<QString, QVariant>> MasterFilter(const TDataSet* master, const QString& details, const QString& fields)
{
    QList<std::pair<QString, QVariant>> filter;
    if (!master || !master->IsOpen() || fields.isEmpty())
        return filter;
    const auto masterNames = fields.split(u';');
    const auto detailNames = (details.isEmpty() ? fields : details).split(u';');
    for (qsizetype i = 0; i < std::min(masterNames.size(), detailNames.size()); ++i)
        filter.append({ detailNames[i].trimmed(), MasterValue(master, masterNames[i]) });
    return filter;
}

}

TStatement TCustomZADataSet::Statement() const
{
    const auto& roles = DataSetRoles(ClassType());
    auto statement = StatementOf(*this, roles);
    const auto* source = MasterSource();
    const auto* master = source ? source->DataSet() : nullptr;
    for (auto& parameter : statement.Parameters)
        if (const auto value = MasterValue(master, parameter.Name); value.isValid())
            parameter.Value = value;
    if (statement.Kind == TStatement::Table)
        statement.Filter = MasterFilter(
            master, TextAtPlaces(*this, { roles.DetailFields }), TextAtPlaces(*this, { roles.MasterFields }));
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

bool TCustomZADataSet::DescribeColumns(QList<TDataColumn>& columns)
{
    auto& connection = NeedConnection();
    columns = NeedAccess().Describe(connection, Statement());
    return true;
}

TRowSet TCustomZADataSet::ReadRows()
{
    auto& connection = NeedConnection();
    return NeedAccess().Query(connection, Statement(), MaxPreviewRows, QueryCancelled());
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
    const auto& roles = DataSetRoles(ClassType());
    const auto is = [&property](const QString& role) { return !role.isEmpty() && SameText(property, role); };
    if (is(roles.Connection))
        TakeConnection(dynamic_cast<TCustomZAConnection*>(ReferenceAt(*this, roles.Connection)));
    if (is(roles.Connection) || is(roles.SQL) || is(roles.Table) || is(roles.Procedure) || is(roles.CommandType))
        ForgetDefinitions();
}
