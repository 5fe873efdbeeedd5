#include "data/SqlSession.h"

#include "data/RowValues.h"
#include "data/StatementText.h"
#include "rtl/Guard.h"
#include "rtl/SysUtils.h"

#include <QFileInfo>
#include <QSet>
#include <QSqlError>

namespace {

QString NextSessionName()
{
    static int number = 0;
    return QStringLiteral("morvane-data-%1").arg(++number);
}

// A database is never made by looking for it.
void NeedFile(const QString& fileName)
{
    if (fileName.isEmpty())
        throw EDatabaseError(QStringLiteral("the connection names no database"));
    const QFileInfo file(fileName);
    if (!file.exists())
        throw EDatabaseError(QStringLiteral("the database file %1 does not exist").arg(fileName));
    if (!file.isFile())
        throw EDatabaseError(QStringLiteral("%1 is no database file").arg(fileName));
}

}

SqlSession::SqlSession(const SqlDriver& driver, const TConnectionParameters& parameters)
    : FDriver(driver)
    , FParameters(parameters)
    , FName(NextSessionName())
{
    if (driver.IsFile())
        NeedFile(parameters.Database);
    if (!QSqlDatabase::isDriverAvailable(driver.PluginName()))
        throw EDatabaseError(QStringLiteral("%1 cannot be reached: the package %2 is not installed")
                                 .arg(driver.Provider(), driver.PluginPackage()));
    FDatabase = QSqlDatabase::addDatabase(driver.PluginName(), FName);
    driver.Configure(FDatabase, parameters);
    if (FDatabase.open())
        return;
    auto text = ErrorText(FDatabase.lastError());
    if (!parameters.Password.isEmpty())
        text.replace(parameters.Password, QLatin1String("***"));
    FDatabase = QSqlDatabase();
    QSqlDatabase::removeDatabase(FName);
    throw EDatabaseError(text);
}

SqlSession::~SqlSession()
{
    FDatabase.close();
    FDatabase = QSqlDatabase();
    QSqlDatabase::removeDatabase(FName);
}

namespace {

QVariant ValueOf(const QList<TStatementParameter>& parameters, const QString& name)
{
    for (const auto& parameter : parameters)
        if (SameText(parameter.Name, name))
            return parameter.Value.isValid() ? parameter.Value : QVariant(QMetaType(QMetaType::QString));
    return QVariant(QMetaType(QMetaType::QString));
}

SqlText CallOf(const SqlDriver& driver, const TStatement& statement)
{
    SqlText text { driver.ProcedureCall(statement.Text, int(statement.Parameters.size())), {} };
    for (const auto& parameter : statement.Parameters)
        text.Values << ValueOf(statement.Parameters, parameter.Name);
    return text;
}

// The first fence: not every system has a transaction that keeps from writing.
void NeedReading(const QString& sql)
{
    static const auto reading
        = QStringLiteral("SELECT WITH VALUES TABLE SHOW DESCRIBE DESC EXPLAIN PRAGMA").split(u' ');
    const auto keyword = FirstKeyword(sql);
    if (!keyword.isEmpty() && !reading.contains(keyword))
        throw EDatabaseError(
            QStringLiteral("only statements that read are run at design time, and this one begins with %1")
                .arg(keyword));
}

SqlText SqlOf(const TStatement& statement)
{
    const auto parsed = ParseStatement(statement.Text);
    NeedReading(parsed.Text);
    SqlText text { parsed.Text, {} };
    for (const auto& name : parsed.Names)
        text.Values << ValueOf(statement.Parameters, name);
    return text;
}

}

SqlText SqlSession::TextOf(const TStatement& statement, bool filtered)
{
    if (statement.Text.trimmed().isEmpty())
        throw EDatabaseError(QStringLiteral("there is no statement and no table"));
    if (statement.Kind == TStatement::Procedure)
        return CallOf(FDriver, statement);
    SqlText text;
    if (statement.Kind == TStatement::Table)
        text.Text = QStringLiteral("SELECT * FROM ") + FDriver.TableName(FDatabase, statement.Text.trimmed());
    else
        text = SqlOf(statement);
    return filtered && !statement.Filter.isEmpty() ? WithFilter(text, statement) : text;
}

SqlText SqlSession::WithFilter(SqlText text, const TStatement& statement)
{
    QStringList conditions;
    for (const auto& [column, value] : statement.Filter) {
        conditions << FDriver.ColumnName(FDatabase, column) + QLatin1String(" = ?");
        text.Values << value;
    }
    text.Text = QStringLiteral("SELECT * FROM (%1) q WHERE %2").arg(text.Text, conditions.join(QLatin1String(" AND ")));
    return text;
}

QList<TDataColumn> SqlSession::Describe(const TStatement& statement)
{
    const auto text = TextOf(statement, false);
    FDriver.BeginReading(FDatabase);
    const Finally end([this] { FDriver.EndReading(FDatabase); });
    auto columns = FDriver.Describe(FDatabase, text);
    MakeNamesUnique(columns);
    return columns;
}

TRowSet SqlSession::Read(const TStatement& statement, int maxRows, const std::function<bool()>& cancelled)
{
    FDriver.BeginReading(FDatabase);
    const Finally end([this] { FDriver.EndReading(FDatabase); });
    const auto stopping = FDriver.StopWhen(FDatabase, cancelled);
    try {
        // Both before anything runs: asking a server for its tables would take the rows away.
        const auto unfiltered = TextOf(statement, false);
        const auto text = TextOf(statement, true);
        auto running = FDriver.Run(FDatabase, text, maxRows);
        TRowSet rows;
        rows.Columns = FDriver.Columns(FDatabase, unfiltered, running);
        MakeNamesUnique(rows.Columns);
        ReadInto(rows, running, maxRows, cancelled);
        return rows;
    } catch (const EDatabaseError&) {
        if (cancelled && cancelled())
            Abort();
        throw;
    }
}

void SqlSession::ReadInto(TRowSet& rows, QSqlQuery& running, int maxRows, const std::function<bool()>& cancelled)
{
    while (running.next()) {
        if (cancelled && cancelled())
            Abort();
        if (rows.Rows.size() == maxRows) {
            rows.Truncated = true;
            return;
        }
        QList<QVariant> row;
        row.reserve(rows.Columns.size());
        for (int i = 0; i < rows.Columns.size(); ++i)
            row << RowValue(running.value(i), rows.Columns[i].DataType);
        rows.Rows << row;
    }
    if (running.lastError().isValid())
        throw EDatabaseError(ErrorText(running.lastError()));
}

QStringList SqlSession::TableNames()
{
    auto names = FDatabase.tables(QSql::Tables) + FDatabase.tables(QSql::Views);
    names.sort(Qt::CaseInsensitive);
    return names;
}

void MakeNamesUnique(QList<TDataColumn>& columns)
{
    QSet<QString> taken;
    for (auto& column : columns) {
        const auto base = column.Name.isEmpty() ? QStringLiteral("Field") : column.Name;
        auto name = base;
        for (int number = 1; taken.contains(name.toLower()); ++number)
            name = QStringLiteral("%1_%2").arg(base).arg(number);
        taken << name.toLower();
        column.Name = name;
    }
}
