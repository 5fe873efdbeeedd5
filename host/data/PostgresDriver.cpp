#include "data/PostgresDriver.h"

#include "data/DeclaredType.h"
#include "data/StatementText.h"

#include <QSqlDriver>

void PostgresDriver::Configure(QSqlDatabase& database, const TConnectionParameters& parameters) const
{
    SqlDriver::Configure(database, parameters);
    database.setConnectOptions(QStringLiteral("connect_timeout=5"));
    database.setNumericalPrecisionPolicy(QSql::HighPrecision);
}

// A preview is for looking: what takes the server a minute is stopped.
void PostgresDriver::BeginReading(QSqlDatabase& database) const
{
    SqlDriver::BeginReading(database);
    ExecuteText(database, QStringLiteral("SET TRANSACTION READ ONLY"));
    ExecuteText(database, QStringLiteral("SET LOCAL statement_timeout = '60s'"));
}

// The client library takes a result whole; so the server is asked for no more than is shown.
QSqlQuery PostgresDriver::Run(QSqlDatabase& database, const SqlText& statement, int maxRows) const
{
    const auto keyword = FirstKeyword(statement.Text);
    if (keyword != QLatin1String("SELECT") && keyword != QLatin1String("WITH"))
        return Execute(database, statement);
    return Execute(database, Wrapped(statement, QStringLiteral("LIMIT %1").arg(maxRows + 1)));
}

QString PostgresDriver::ProcedureCall(const QString& name, int parameters) const
{
    return QStringLiteral("SELECT * FROM %1(%2)")
        .arg(name, QStringList(parameters, QStringLiteral("?")).join(QLatin1String(", ")));
}

namespace {

// The numbers by which the server calls its types.
enum ServerType {
    ptBool = 16,
    ptBytea = 17,
    ptChar = 18,
    ptName = 19,
    ptInt8 = 20,
    ptInt2 = 21,
    ptInt4 = 23,
    ptText = 25,
    ptOid = 26,
    ptJson = 114,
    ptXml = 142,
    ptFloat4 = 700,
    ptFloat8 = 701,
    ptMoney = 790,
    ptBpchar = 1042,
    ptVarchar = 1043,
    ptDate = 1082,
    ptTime = 1083,
    ptTimestamp = 1114,
    ptTimestampTz = 1184,
    ptTimeTz = 1266,
    ptNumeric = 1700,
    ptUuid = 2950,
    ptJsonb = 3802,
};

TFieldType SimpleType(int serverType)
{
    static const QHash<int, TFieldType> types { { ptBool, ftBoolean }, { ptBytea, ftBlob }, { ptInt8, ftLargeint },
        { ptInt2, ftSmallint }, { ptInt4, ftInteger }, { ptOid, ftLongWord }, { ptText, ftWideMemo },
        { ptJson, ftWideMemo }, { ptJsonb, ftWideMemo }, { ptXml, ftWideMemo }, { ptFloat4, ftSingle },
        { ptFloat8, ftFloat }, { ptMoney, ftCurrency }, { ptDate, ftDate }, { ptTime, ftTime }, { ptTimeTz, ftTime },
        { ptTimestamp, ftTimeStamp }, { ptTimestampTz, ftTimeStampOffset } };
    return types.value(serverType, ftUnknown);
}

}

TDataColumn PostgresDriver::Column(const QSqlField& field) const
{
    const int serverType = field.typeID();
    TDataColumn column;
    if (serverType == ptNumeric)
        column = field.length() > 0 ? DecimalColumn(field.length(), std::max(field.precision(), 0))
                                    : DecimalColumn(38, 10);
    else if (serverType == ptBpchar || serverType == ptChar)
        column = TextColumn(ftFixedWideChar, field.length());
    else if (serverType == ptUuid)
        column = TextColumn(ftGuid, 38);
    else
        column.DataType = SimpleType(serverType);
    if (column.DataType == ftUnknown)
        column = TextColumn(ftWideString, field.length());
    column.Name = field.name();
    return column;
}
