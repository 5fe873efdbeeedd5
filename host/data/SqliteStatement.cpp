#include "data/SqliteStatement.h"

#include "data/DeclaredType.h"
#include "rtl/SysUtils.h"

#include <QSqlDriver>

#include <sqlite3.h>

SqliteStatement::SqliteStatement(sqlite3* database, const QString& text)
    : FDatabase(database)
{
    const auto utf8 = text.toUtf8();
    const char* rest = nullptr;
    if (sqlite3_prepare_v2(database, utf8.constData(), int(utf8.size()), &FStatement, &rest) != SQLITE_OK)
        throw EDatabaseError(QString::fromUtf8(sqlite3_errmsg(database)));
    if (rest && !QByteArray(rest).trimmed().isEmpty()) {
        sqlite3_finalize(FStatement);
        throw EDatabaseError(QStringLiteral("there is more than one statement"));
    }
    if (FStatement && ColumnCount() > 0)
        return;
    sqlite3_finalize(FStatement);
    throw EDatabaseError(text.trimmed().isEmpty() ? QStringLiteral("there is no statement")
                                                  : QStringLiteral("the statement gives no rows"));
}

SqliteStatement::~SqliteStatement()
{
    sqlite3_finalize(FStatement);
}

int SqliteStatement::ColumnCount() const
{
    return sqlite3_column_count(FStatement);
}

TDataColumn SqliteStatement::Column(int index) const
{
    TDataColumn column;
    if (const char* declared = sqlite3_column_decltype(FStatement, index))
        column = DeclaredType(QString::fromUtf8(declared));
    column.Name = QString::fromUtf8(sqlite3_column_name(FStatement, index));
    const char* table = sqlite3_column_table_name(FStatement, index);
    int notNull = 0;
    int counts = 0;
    if (!table
        || sqlite3_table_column_metadata(FDatabase, sqlite3_column_database_name(FStatement, index), table,
               sqlite3_column_origin_name(FStatement, index), nullptr, nullptr, &notNull, nullptr, &counts)
            != SQLITE_OK)
        return column;
    if (counts)
        column.DataType = ftAutoInc;
    column.Required = notNull && !counts;
    return column;
}

bool SqliteStatement::ReadOneRow(int steps)
{
    sqlite3_progress_handler(
        FDatabase, steps, [](void*) { return 1; }, nullptr);
    const bool read = sqlite3_step(FStatement) == SQLITE_ROW;
    sqlite3_progress_handler(FDatabase, 0, nullptr, nullptr);
    return read;
}

TFieldType SqliteStatement::TypeOfValue(int index) const
{
    switch (sqlite3_column_type(FStatement, index)) {
    case SQLITE_INTEGER:
        return ftLargeint;
    case SQLITE_FLOAT:
        return ftFloat;
    case SQLITE_TEXT:
        return ftString;
    case SQLITE_BLOB:
        return ftBlob;
    default:
        return ftUnknown;
    }
}

sqlite3* SqliteHandle(const QSqlDatabase& database)
{
    const auto handle = database.driver()->handle();
    return handle.isValid() && qstrcmp(handle.typeName(), "sqlite3*") == 0
        ? *static_cast<sqlite3* const*>(handle.constData())
        : nullptr;
}
