#pragma once

#include "data/SqlDriver.h"

class PostgresDriver : public SqlDriver {
public:
    QString Provider() const override { return QStringLiteral("PostgreSQL"); }
    QString PluginName() const override { return QStringLiteral("QPSQL"); }
    QString PluginPackage() const override { return QStringLiteral("libqt6sql6-psql"); }
    void Configure(QSqlDatabase& database, const TConnectionParameters& parameters) const override;
    void BeginReading(QSqlDatabase& database) const override;
    QSqlQuery Run(QSqlDatabase& database, const SqlText& statement, int maxRows) const override;
    QString ProcedureCall(const QString& name, int parameters) const override;

protected:
    TDataColumn Column(const QSqlField& field) const override;
};
