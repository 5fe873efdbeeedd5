#pragma once

#include "data/SqlDriver.h"

// An open connection to a database. Opened when it is made, closed when it goes.
class SqlSession {
public:
    // Raises EDatabaseError for a file that is not there, for a plug-in that is not installed and for whatever the
    // system says; the password is not in it.
    SqlSession(const SqlDriver& driver, const TConnectionParameters& parameters);
    SqlSession(const SqlSession&) = delete;
    SqlSession& operator=(const SqlSession&) = delete;
    ~SqlSession();

    const SqlDriver& Driver() const { return FDriver; }
    const TConnectionParameters& Parameters() const { return FParameters; }

    QList<TDataColumn> Describe(const TStatement& statement);
    TRowSet Read(const TStatement& statement, int maxRows, const std::function<bool()>& cancelled);
    QStringList TableNames();

private:
    SqlText TextOf(const TStatement& statement, bool filtered);
    SqlText WithFilter(SqlText text, const TStatement& statement);
    void ReadInto(TRowSet& rows, QSqlQuery& running, int maxRows, const std::function<bool()>& cancelled);

    const SqlDriver& FDriver;
    TConnectionParameters FParameters;
    QString FName;
    QSqlDatabase FDatabase;
};

// Gives every column a name of its own: a second "Name" becomes "Name_1", one without a name "Field".
void MakeNamesUnique(QList<TDataColumn>& columns);
