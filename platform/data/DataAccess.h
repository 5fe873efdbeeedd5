#pragma once

#include "data/TFieldType.h"

#include <QVariant>

class TCustomZAConnection;

// How datasets reach real rows. The host sets the one implementation there is; the data classes ask it and nothing
// else.
//
// Nothing here connects by itself: datasets and connections ask only when somebody opens, connects, describes or
// previews, and the implementation refuses (EDatabaseError) until the user has allowed the project to connect.

// One column of a statement's result.
struct TDataColumn {
    QString Name;
    TFieldType DataType = ftUnknown;
    // As TFieldDef has them: characters or digits behind the point, and all digits.
    int Size = 0;
    int Precision = 0;
    bool Required = false;
    bool ReadOnly = false;
    friend bool operator==(const TDataColumn&, const TDataColumn&) = default;
};

// What a connection component says, whatever its class calls it (see DataRoles.h).
struct TConnectionParameters {
    // "SQLite", "PostgreSQL", "MySQL", "ODBC", or the name of a system that nobody here can reach.
    QString Provider;
    QString Server;
    // 0 where the component names none.
    int Port = 0;
    // A database's name; for SQLite a file, which may be relative to the project's folder.
    QString Database;
    QString UserName;
    QString Password;
};

// A parameter of a statement, as ":Name" stands in its text. An invalid value is bound as null.
struct TStatementParameter {
    QString Name;
    TFieldType DataType = ftUnknown;
    QVariant Value;
};

// What a dataset shows.
struct TStatement {
    enum TKind { Sql, Table, Procedure };
    TKind Kind = Sql;
    // The SQL text, or the name of the table or procedure as the component has it.
    QString Text;
    QList<TStatementParameter> Parameters;
    // For a dataset that follows a master: its columns with the values that they must have, null included.
    QList<std::pair<QString, QVariant>> Filter;
};

// Rows as they were read.
struct TRowSet {
    QList<TDataColumn> Columns;
    QList<QList<QVariant>> Rows;
    // There were more rows than asked for.
    bool Truncated = false;
};

class IDataAccess {
public:
    // Whether the user allowed the project of that connection to connect.
    virtual bool IsAllowed(const TCustomZAConnection& connection) = 0;
    // Makes sure that the database can be reached and stays reached, or lets it go.
    virtual void Connect(TCustomZAConnection& connection) = 0;
    virtual void Disconnect(TCustomZAConnection& connection) = 0;
    // The columns of the statement, in order, without fetching rows.
    virtual QList<TDataColumn> Describe(TCustomZAConnection& connection, const TStatement& statement) = 0;
    // The rows of the statement, at most that many, read in a transaction that cannot write. `cancelled` is asked time
    // and again, may be empty, and stops the reading with EAbort.
    virtual TRowSet Query(TCustomZAConnection& connection, const TStatement& statement, int maxRows,
        const std::function<bool()>& cancelled)
        = 0;
    // Tables and views, in name order.
    virtual QStringList TableNames(TCustomZAConnection& connection) = 0;
    // The component goes; nothing is asked for it any more.
    virtual void Forget(const TCustomZAConnection& connection) = 0;

protected:
    ~IDataAccess() = default;
};

// Nil takes it away. Whoever sets it keeps it alive until then.
void SetDataAccess(IDataAccess* access);
// Nil in a process that reaches no rows.
IDataAccess* DataAccess();

// What stops a reading that the user no longer wants; asked during TDataSet::Open. Empty: nothing does.
void SetQueryCancelled(std::function<bool()> cancelled);
const std::function<bool()>& QueryCancelled();
// The most rows that an open dataset holds.
constexpr int MaxPreviewRows = 1000;
