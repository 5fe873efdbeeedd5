#include "data/SqliteDriver.h"

#include "data/DeclaredType.h"
#include "data/ExpressionTypes.h"
#include "data/SqliteStatement.h"
#include "rtl/SysUtils.h"

#include <QSqlDriver>

#include <sqlite3.h>

void SqliteDriver::Configure(QSqlDatabase& database, const TConnectionParameters& parameters) const
{
    database.setDatabaseName(parameters.Database);
    database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY;QSQLITE_BUSY_TIMEOUT=2000"));
}

namespace {

// So much work is done to look at one row of an expression whose type its text does not tell: a fraction of a second.
constexpr int StepsForOneRow = 2'000'000;

void LookAtOneRow(sqlite3* database, const QString& text, QList<TDataColumn>& columns)
{
    const auto isUnknown = [](const TDataColumn& column) { return column.DataType == ftUnknown; };
    if (std::none_of(columns.begin(), columns.end(), isUnknown))
        return;
    SqliteStatement statement(database, text);
    const bool hasRow = statement.ReadOneRow(StepsForOneRow);
    for (int i = 0; i < columns.size(); ++i) {
        if (!isUnknown(columns[i]))
            continue;
        const auto type = hasRow ? statement.TypeOfValue(i) : ftUnknown;
        columns[i].DataType = type == ftUnknown ? ftString : type;
        if (columns[i].DataType == ftString)
            columns[i].Size = DefaultTextSize;
    }
}

QList<TDataColumn> DescribeText(sqlite3* database, const QString& text)
{
    const SqliteStatement statement(database, text);
    QList<TDataColumn> columns;
    for (int i = 0; i < statement.ColumnCount(); ++i)
        columns << statement.Column(i);
    ConcludeTypes(text, columns, [database](const QString& other) {
        const SqliteStatement compiled(database, other);
        return compiled.ColumnCount() == 1 ? compiled.Column(0) : TDataColumn();
    });
    LookAtOneRow(database, text, columns);
    return columns;
}

}

QList<TDataColumn> SqliteDriver::Describe(QSqlDatabase& database, const SqlText& statement) const
{
    return DescribeText(SqliteHandle(database), statement.Text);
}

QList<TDataColumn> SqliteDriver::Columns(QSqlDatabase& database, const SqlText& statement, const QSqlQuery&) const
{
    return DescribeText(SqliteHandle(database), statement.Text);
}

std::shared_ptr<void> SqliteDriver::StopWhen(QSqlDatabase& database, const std::function<bool()>& cancelled) const
{
    if (!cancelled)
        return {};
    constexpr int stepsBetweenQuestions = 100'000;
    auto* handle = SqliteHandle(database);
    auto* question = new std::function<bool()>(cancelled);
    sqlite3_progress_handler(
        handle, stepsBetweenQuestions,
        [](void* asked) { return (*static_cast<std::function<bool()>*>(asked))() ? 1 : 0; }, question);
    return { question, [handle](std::function<bool()>* asked) {
                sqlite3_progress_handler(handle, 0, nullptr, nullptr);
                delete asked;
            } };
}

QString SqliteDriver::ColumnName(const QSqlDatabase& database, const QString& name) const
{
    return database.driver()->escapeIdentifier(name, QSqlDriver::FieldName);
}

QString SqliteDriver::ProcedureCall(const QString&, int) const
{
    throw EDatabaseError(QStringLiteral("SQLite has no stored procedures"));
}
