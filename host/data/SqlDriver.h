#pragma once

#include "data/DataAccess.h"

#include <QSqlDatabase>
#include <QSqlField>
#include <QSqlQuery>

#include <memory>

// A statement that is ready for a database: "?" for each parameter, and their values.
struct SqlText {
    QString Text;
    QList<QVariant> Values;
};

// What one database system wants to be different. Made once for each provider; holds no state of a connection.
//
// Everything here raises EDatabaseError with the system's own words.
class SqlDriver {
public:
    SqlDriver() = default;
    SqlDriver(const SqlDriver&) = delete;
    SqlDriver& operator=(const SqlDriver&) = delete;
    virtual ~SqlDriver() = default;

    // The driver of that provider name ("SQLite"), without regard to case, or nil.
    static const SqlDriver* Find(const QString& provider);
    // The names that Find knows.
    static QStringList Providers();

    virtual QString Provider() const = 0;
    // The name of the Qt SQL plug-in, and the Debian package that brings it.
    virtual QString PluginName() const = 0;
    virtual QString PluginPackage() const = 0;
    // Whether the database is a file, named from the project's folder, that must be there.
    virtual bool IsFile() const { return false; }
    // Puts the parameters into a database that is not open yet, so that it opens for reading and gives up in seconds
    // where nobody answers. The base class sets server, port, name, user and password.
    virtual void Configure(QSqlDatabase& database, const TConnectionParameters& parameters) const;

    // Statements round the reading of rows, so that nothing can be written. The base class begins a transaction and
    // rolls it back.
    virtual void BeginReading(QSqlDatabase& database) const;
    virtual void EndReading(QSqlDatabase& database) const;

    // The columns of the statement, in order, without fetching rows.
    virtual QList<TDataColumn> Describe(QSqlDatabase& database, const SqlText& statement) const;
    // Runs the statement. At most `maxRows` + 1 rows are asked of it.
    virtual QSqlQuery Run(QSqlDatabase& database, const SqlText& statement, int maxRows) const;
    // The columns of a statement that runs.
    virtual QList<TDataColumn> Columns(
        QSqlDatabase& database, const SqlText& statement, const QSqlQuery& running) const;
    // Stops what runs in the database when `cancelled` says so, while the result lives. The base class cannot, and
    // gives nothing: the reading is then stopped between rows only.
    virtual std::shared_ptr<void> StopWhen(QSqlDatabase& database, const std::function<bool()>& cancelled) const;

    // A table's or a column's name, as the system takes it.
    virtual QString TableName(const QSqlDatabase& database, const QString& name) const;
    virtual QString ColumnName(const QSqlDatabase& database, const QString& name) const;
    // The call of a procedure with that many parameters.
    virtual QString ProcedureCall(const QString& name, int parameters) const = 0;

protected:
    // The column behind a field of a result.
    virtual TDataColumn Column(const QSqlField& field) const;
    QList<TDataColumn> ColumnsOf(const QSqlQuery& running) const;
    // Prepares, binds and runs; raises on failure.
    static QSqlQuery Execute(const QSqlDatabase& database, const SqlText& statement);
    static void ExecuteText(const QSqlDatabase& database, const QString& text);
    // "SELECT * FROM (statement) q" and what follows.
    static SqlText Wrapped(const SqlText& statement, const QString& rest);
};

// What the system said, in one line and without the plug-in's words round it.
QString ErrorText(const QSqlError& error);
