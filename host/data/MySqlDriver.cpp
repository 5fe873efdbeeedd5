#include "data/MySqlDriver.h"

#include "data/DeclaredType.h"

#include <QSqlDriver>

void MySqlDriver::Configure(QSqlDatabase& database, const TConnectionParameters& parameters) const
{
    SqlDriver::Configure(database, parameters);
    database.setConnectOptions(QStringLiteral("MYSQL_OPT_CONNECT_TIMEOUT=5;MYSQL_OPT_READ_TIMEOUT=60"));
    database.setNumericalPrecisionPolicy(QSql::HighPrecision);
}

void MySqlDriver::BeginReading(QSqlDatabase& database) const
{
    ExecuteText(database, QStringLiteral("START TRANSACTION READ ONLY"));
}

void MySqlDriver::EndReading(QSqlDatabase& database) const
{
    QSqlQuery(database).exec(QStringLiteral("ROLLBACK"));
    QSqlQuery(database).exec(QStringLiteral("SET SESSION sql_select_limit = DEFAULT"));
}

// The server's own limit leaves the statement as it is: an order, and two columns of one name, stay.
QList<TDataColumn> MySqlDriver::Describe(QSqlDatabase& database, const SqlText& statement) const
{
    ExecuteText(database, QStringLiteral("SET SESSION sql_select_limit = 0"));
    return ColumnsOf(Execute(database, statement));
}

QSqlQuery MySqlDriver::Run(QSqlDatabase& database, const SqlText& statement, int maxRows) const
{
    ExecuteText(database, QStringLiteral("SET SESSION sql_select_limit = %1").arg(maxRows + 1));
    return Execute(database, statement);
}

QString MySqlDriver::ColumnName(const QSqlDatabase& database, const QString& name) const
{
    return database.driver()->escapeIdentifier(name, QSqlDriver::FieldName);
}

QString MySqlDriver::ProcedureCall(const QString& name, int parameters) const
{
    return QStringLiteral("CALL %1(%2)")
        .arg(name, QStringList(parameters, QStringLiteral("?")).join(QLatin1String(", ")));
}

namespace {

// The numbers by which the server calls its types.
enum ServerType {
    mtDecimal = 0,
    mtTiny = 1,
    mtFloat = 4,
    mtYear = 13,
    mtBit = 16,
    mtDateTime = 12,
    mtTimestamp = 7,
    mtNewDecimal = 246,
    mtTinyBlob = 249,
    mtBlob = 252,
    mtVarString = 253,
    mtString = 254,
};

bool IsBytes(const QSqlField& field)
{
    return field.metaType().id() == QMetaType::QByteArray;
}

}

// Lengths of texts are bytes in the connection's character set, which has up to four for a character.
TDataColumn MySqlDriver::Column(const QSqlField& field) const
{
    constexpr int bytesPerCharacter = 4;
    constexpr int digitsAndSigns = 2;
    TDataColumn column = SqlDriver::Column(field);
    switch (field.typeID()) {
    case mtDecimal:
    case mtNewDecimal:
        column = DecimalColumn(field.length() - (field.precision() > 0 ? digitsAndSigns : 1), field.precision());
        break;
    case mtTiny:
        column.DataType = field.length() == 1 ? ftBoolean : ftShortint;
        column.Size = 0;
        break;
    case mtFloat:
        column.DataType = ftSingle;
        break;
    case mtYear:
        column.DataType = ftSmallint;
        column.Size = 0;
        break;
    case mtDateTime:
        column.DataType = ftDateTime;
        break;
    case mtTinyBlob:
    case mtBlob:
        column.DataType = IsBytes(field) ? ftBlob : ftWideMemo;
        column.Size = 0;
        break;
    case mtVarString:
    case mtString:
        column = IsBytes(field) ? TextColumn(ftVarBytes, field.length())
                                : TextColumn(field.typeID() == mtString ? ftFixedWideChar : ftWideString,
                                    field.length() / bytesPerCharacter);
        break;
    default:
        break;
    }
    column.Name = field.name();
    column.Required = field.requiredStatus() == QSqlField::Required;
    return column;
}
