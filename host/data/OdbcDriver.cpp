#include "data/OdbcDriver.h"

#include "data/DeclaredType.h"

void OdbcDriver::Configure(QSqlDatabase& database, const TConnectionParameters& parameters) const
{
    SqlDriver::Configure(database, parameters);
    database.setConnectOptions(QStringLiteral("SQL_ATTR_ACCESS_MODE=SQL_MODE_READ_ONLY;SQL_ATTR_LOGIN_TIMEOUT=5"));
}

QString OdbcDriver::ProcedureCall(const QString& name, int parameters) const
{
    return QStringLiteral("{CALL %1(%2)}")
        .arg(name, QStringList(parameters, QStringLiteral("?")).join(QLatin1String(", ")));
}

TDataColumn OdbcDriver::Column(const QSqlField& field) const
{
    constexpr int decimal = 3;
    constexpr int numeric = 2;
    auto column = SqlDriver::Column(field);
    if ((field.typeID() == decimal || field.typeID() == numeric) && field.length() > 0) {
        const auto required = column.Required;
        column = DecimalColumn(field.length(), std::max(field.precision(), 0));
        column.Name = field.name();
        column.Required = required;
    }
    return column;
}
