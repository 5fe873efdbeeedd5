#pragma once

#include "data/SqlDriver.h"

// SQLite: files, opened for reading. Types are those that the tables declare; those of expressions are concluded.
class SqliteDriver : public SqlDriver {
public:
    QString Provider() const override { return QStringLiteral("SQLite"); }
    QString PluginName() const override { return QStringLiteral("QSQLITE"); }
    QString PluginPackage() const override { return QStringLiteral("libqt6sql6-sqlite"); }
    bool IsFile() const override { return true; }
    void Configure(QSqlDatabase& database, const TConnectionParameters& parameters) const override;
    QList<TDataColumn> Describe(QSqlDatabase& database, const SqlText& statement) const override;
    QList<TDataColumn> Columns(
        QSqlDatabase& database, const SqlText& statement, const QSqlQuery& running) const override;
    std::shared_ptr<void> StopWhen(QSqlDatabase& database, const std::function<bool()>& cancelled) const override;
    QString ColumnName(const QSqlDatabase& database, const QString& name) const override;
    QString ProcedureCall(const QString& name, int parameters) const override;
};
