#pragma once

#include "data/SqlDriver.h"

// Whatever has an ODBC driver. Database is a data source's name or a whole connection string.
class OdbcDriver : public SqlDriver {
public:
    QString Provider() const override { return QStringLiteral("ODBC"); }
    QString PluginName() const override { return QStringLiteral("QODBC"); }
    QString PluginPackage() const override { return QStringLiteral("libqt6sql6-odbc"); }
    void Configure(QSqlDatabase& database, const TConnectionParameters& parameters) const override;
    QString ProcedureCall(const QString& name, int parameters) const override;

protected:
    TDataColumn Column(const QSqlField& field) const override;
};
