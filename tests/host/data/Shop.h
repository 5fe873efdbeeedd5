#pragma once

#include "classes/Forms.h"
#include "data/DataClasses.h"
#include "data/SqlDataAccess.h"
#include "data/TCustomZAConnection.h"
#include "data/ZADataSets.h"
#include "rtl/SysUtils.h"

#include <QDir>
#include <QFile>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <gtest/gtest.h>

// Runs statements on a database of their own connection; a failure fails the test.
inline void RunStatements(const TConnectionParameters& target, const QString& plugin, const QStringList& statements)
{
    const auto name = QStringLiteral("test");
    {
        auto database = QSqlDatabase::addDatabase(plugin, name);
        database.setDatabaseName(target.Database);
        database.setHostName(target.Server);
        if (target.Port > 0)
            database.setPort(target.Port);
        database.setUserName(target.UserName);
        database.setPassword(target.Password);
        ASSERT_TRUE(database.open()) << database.lastError().text().toStdString();
        for (const auto& statement : statements) {
            QSqlQuery query(database);
            EXPECT_TRUE(query.exec(statement))
                << statement.toStdString() << ": " << query.lastError().text().toStdString();
        }
    }
    QSqlDatabase::removeDatabase(name);
}

// The columns in one line: "ID:ftInteger! Title:ftString(40) Price:ftBCD(10,2)"; "!" is required.
inline QString Told(const QList<TDataColumn>& columns)
{
    QStringList told;
    for (const auto& column : columns) {
        auto text = column.Name + u':' + GetEnumName(FieldTypeInfo(), column.DataType);
        if (column.Precision > 0)
            text += QStringLiteral("(%1,%2)").arg(column.Precision).arg(column.Size);
        else if (column.Size > 0)
            text += QStringLiteral("(%1)").arg(column.Size);
        told << (column.Required ? text + u'!' : text);
    }
    return told.join(u' ');
}

// A data module with a connection to a real SQLite file, and what is allowed.
class Shop : public testing::Test {
protected:
    Shop()
    {
        RegisterDataClasses();
        RunStatements({ QStringLiteral("SQLite"), {}, 0, File(QStringLiteral("shop.db")), {}, {} },
            QStringLiteral("QSQLITE"),
            { QStringLiteral("pragma synchronous = off"),
                QStringLiteral("create table BOOK (ID integer primary key autoincrement, TITLE varchar(40) not null, "
                               "PRICE decimal(10,2), ISSUED date, INPRINT boolean, BLURB text, COVER blob, STOCK int)"),
                QStringLiteral("insert into BOOK (TITLE, PRICE, ISSUED, INPRINT, STOCK) values "
                               "('Emma', 8.9, '1815-12-23', 1, 6), ('Ulysses', 12.5, '1922-02-02', 0, 3)"),
                QStringLiteral("create table SALE (BOOK integer not null, AMOUNT integer)"),
                QStringLiteral("insert into SALE values (1, 10), (2, 20), (2, 21)"),
                QStringLiteral("create view CHEAP as select TITLE, PRICE from BOOK where PRICE < 10") });
        Module.SetName(QStringLiteral("dmShop"));
        Connection->SetName(QStringLiteral("conShop"));
        SetStrProp(Connection, QStringLiteral("ProviderName"), QStringLiteral("SQLite"));
        SetStrProp(Connection, QStringLiteral("Database"), QStringLiteral("shop.db"));
        Access.SetProjectOf([this](const TCustomZAConnection&) { return Project; });
        Access.Allow(Project);
    }

    QString File(const QString& name) const { return QDir(Folder.path()).filePath(name); }
    TZAQuery* NewQuery(const QString& sql, const QString& name = QStringLiteral("qryBooks"))
    {
        auto* query = new TZAQuery(&Module);
        query->SetName(name);
        query->SetConnection(Connection);
        query->SQL().SetText(sql);
        return query;
    }
    QString Described(const QString& sql)
    {
        TStatement statement;
        statement.Text = sql;
        return Told(Access.Describe(*Connection, statement));
    }
    // The message of what goes wrong; empty when nothing does.
    template <class Work>
    QString Failure(const Work& work)
    {
        try {
            work();
        } catch (const EDatabaseError& error) {
            return error.Message();
        }
        return {};
    }

    QTemporaryDir Folder;
    QString Project = File(QStringLiteral("shop.dproj"));
    SqlDataAccess Access;
    TDataModule Module;
    TZAConnection* Connection = new TZAConnection(&Module);
};
