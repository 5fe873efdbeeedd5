#pragma once

#include "data/SqlDriver.h"

// MySQL and MariaDB.
class MySqlDriver : public SqlDriver {
public:
    QString Provider() const override { return QStringLiteral("MySQL"); }
    QString PluginName() const override { return QStringLiteral("QMYSQL"); }
    QString PluginPackage() const override { return QStringLiteral("libqt6sql6-mysql"); }
    void Configure(QSqlDatabase& database, const TConnectionParameters& parameters) const override;
    void BeginReading(QSqlDatabase& database) const override;
    void EndReading(QSqlDatabase& database) const override;
    QList<TDataColumn> Describe(QSqlDatabase& database, const SqlText& statement) const override;
    QSqlQuery Run(QSqlDatabase& database, const SqlText& statement, int maxRows) const override;
    QString ColumnName(const QSqlDatabase& database, const QString& name) const override;
    QString ProcedureCall(const QString& name, int parameters) const override;

protected:
    TDataColumn Column(const QSqlField& field) const override;
};
