#pragma once

#include "data/DataAccess.h"

#include <QSqlDatabase>

struct sqlite3;
struct sqlite3_stmt;

// A statement that SQLite has compiled and not run: it tells its columns. Closed when the object goes.
class SqliteStatement {
public:
    // Raises EDatabaseError with SQLite's words for a statement that does not compile.
    SqliteStatement(sqlite3* database, const QString& text);
    SqliteStatement(const SqliteStatement&) = delete;
    SqliteStatement& operator=(const SqliteStatement&) = delete;
    ~SqliteStatement();

    int ColumnCount() const;
    // What the tables declare; the type is ftUnknown for an expression.
    TDataColumn Column(int index) const;
    // Runs it with all parameters null for one row, for at most so many steps of SQLite's machine. False without a row.
    bool ReadOneRow(int steps);
    // What the value of that row is; ftUnknown for a null.
    TFieldType TypeOfValue(int index) const;

private:
    sqlite3* FDatabase;
    sqlite3_stmt* FStatement = nullptr;
};

// The database behind a Qt connection of SQLite's; nil while it is closed.
sqlite3* SqliteHandle(const QSqlDatabase& database);
