#include "data/SqlDriver.h"

#include "data/MySqlDriver.h"
#include "data/OdbcDriver.h"
#include "data/PostgresDriver.h"
#include "data/SqliteDriver.h"
#include "rtl/SysUtils.h"

#include <QRegularExpression>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlRecord>

namespace {

// The drivers, in the order in which their providers are listed. To add one, add it here.
const std::vector<std::unique_ptr<SqlDriver>>& Drivers()
{
    static const auto drivers = [] {
        std::vector<std::unique_ptr<SqlDriver>> made;
        made.push_back(std::make_unique<SqliteDriver>());
        made.push_back(std::make_unique<PostgresDriver>());
        made.push_back(std::make_unique<MySqlDriver>());
        made.push_back(std::make_unique<OdbcDriver>());
        return made;
    }();
    return drivers;
}

}

const SqlDriver* SqlDriver::Find(const QString& provider)
{
    for (const auto& driver : Drivers())
        if (SameText(driver->Provider(), provider))
            return driver.get();
    return nullptr;
}

QStringList SqlDriver::Providers()
{
    QStringList names;
    for (const auto& driver : Drivers())
        names << driver->Provider();
    return names;
}

void SqlDriver::Configure(QSqlDatabase& database, const TConnectionParameters& parameters) const
{
    database.setDatabaseName(parameters.Database);
    database.setHostName(parameters.Server);
    if (parameters.Port > 0)
        database.setPort(parameters.Port);
    database.setUserName(parameters.UserName);
    database.setPassword(parameters.Password);
}

void SqlDriver::BeginReading(QSqlDatabase& database) const
{
    database.transaction();
}

void SqlDriver::EndReading(QSqlDatabase& database) const
{
    database.rollback();
}

QList<TDataColumn> SqlDriver::Describe(QSqlDatabase& database, const SqlText& statement) const
{
    return ColumnsOf(Execute(database, Wrapped(statement, QStringLiteral("WHERE 1 = 0"))));
}

QSqlQuery SqlDriver::Run(QSqlDatabase& database, const SqlText& statement, int) const
{
    return Execute(database, statement);
}

QList<TDataColumn> SqlDriver::Columns(QSqlDatabase&, const SqlText&, const QSqlQuery& running) const
{
    return ColumnsOf(running);
}

std::shared_ptr<void> SqlDriver::StopWhen(QSqlDatabase&, const std::function<bool()>&) const
{
    return {};
}

// A table that the database lists gets its own spelling, quoted; anything else stays as the component has it.
QString SqlDriver::TableName(const QSqlDatabase& database, const QString& name) const
{
    const auto tables = database.tables(QSql::Tables) + database.tables(QSql::Views);
    auto found = tables.indexOf(name);
    for (qsizetype i = 0; found < 0 && i < tables.size(); ++i)
        if (SameText(tables[i], name))
            found = i;
    return found < 0 ? name : database.driver()->escapeIdentifier(tables[found], QSqlDriver::TableName);
}

QString SqlDriver::ColumnName(const QSqlDatabase& database, const QString& name) const
{
    static const QRegularExpression plain(QStringLiteral("^[A-Za-z_][A-Za-z0-9_]*$"));
    return plain.match(name).hasMatch() ? name : database.driver()->escapeIdentifier(name, QSqlDriver::FieldName);
}

QSqlQuery SqlDriver::Execute(const QSqlDatabase& database, const SqlText& statement)
{
    QSqlQuery query(database);
    query.setForwardOnly(true);
    const bool prepared = statement.Values.isEmpty() || query.prepare(statement.Text);
    for (const auto& value : statement.Values)
        query.addBindValue(value);
    if (!prepared || !(statement.Values.isEmpty() ? query.exec(statement.Text) : query.exec()))
        throw EDatabaseError(ErrorText(query.lastError()));
    return query;
}

void SqlDriver::ExecuteText(const QSqlDatabase& database, const QString& text)
{
    QSqlQuery query(database);
    if (!query.exec(text))
        throw EDatabaseError(ErrorText(query.lastError()));
}

SqlText SqlDriver::Wrapped(const SqlText& statement, const QString& rest)
{
    return { QStringLiteral("SELECT * FROM (%1) q %2").arg(statement.Text, rest), statement.Values };
}

QList<TDataColumn> SqlDriver::ColumnsOf(const QSqlQuery& running) const
{
    QList<TDataColumn> columns;
    const auto record = running.record();
    for (int i = 0; i < record.count(); ++i)
        columns << Column(record.field(i));
    return columns;
}

namespace {

TFieldType TypeOfMetaType(int metaType)
{
    switch (metaType) {
    case QMetaType::Bool:
        return ftBoolean;
    case QMetaType::Char:
    case QMetaType::SChar:
    case QMetaType::Short:
        return ftSmallint;
    case QMetaType::UShort:
        return ftWord;
    case QMetaType::Int:
        return ftInteger;
    case QMetaType::UInt:
        return ftLongWord;
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return ftLargeint;
    case QMetaType::Float:
    case QMetaType::Double:
        return ftFloat;
    case QMetaType::QDate:
        return ftDate;
    case QMetaType::QTime:
        return ftTime;
    case QMetaType::QDateTime:
        return ftTimeStamp;
    case QMetaType::QByteArray:
        return ftBlob;
    default:
        return ftWideString;
    }
}

}

TDataColumn SqlDriver::Column(const QSqlField& field) const
{
    TDataColumn column;
    column.Name = field.name();
    column.DataType = TypeOfMetaType(field.metaType().id());
    column.Required = field.requiredStatus() == QSqlField::Required;
    if (column.DataType != ftWideString)
        return column;
    const int length = field.length();
    const bool isLong = length > 8000 || length < 0;
    column.DataType = isLong ? ftWideMemo : ftWideString;
    column.Size = isLong ? 0 : std::max(length, 1);
    return column;
}

QString ErrorText(const QSqlError& error)
{
    auto text = error.databaseText().trimmed();
    if (text.isEmpty())
        text = error.driverText().trimmed();
    static const QRegularExpression prefix(QStringLiteral("^(ERROR|FATAL|FEHLER):\\s*"));
    text.remove(prefix);
    return text.section(u'\n', 0, 0).trimmed();
}
