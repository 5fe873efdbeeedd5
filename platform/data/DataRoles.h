#pragma once

#include "classes/TypInfo.h"

// Which published property of a class plays which part. The families TCustomZAConnection, TCustomZADataSet,
// TCustomZASQL and TZAScript work by these tables, so that a catalogue's class with names of its own behaves like ours:
// what is written is the property of that class, and so the form file gets `Connection = ...` or `DataBase = ...`.
//
// To present another library's class, give it one of the families as parent and say its names with SetDataSetRoles or
// SetConnectionRoles. A part that a class leaves empty is looked for in its parents.

// A dataset's parts, and those of SQL and script components.
struct TDataSetRoles {
    // The reference to the connection component.
    QString Connection;
    // The statement: a TStrings, a string, or a collection whose items have a "SQL".
    QString SQL;
    QString Table;
    QString Procedure;
    // The collection of parameters.
    QString Params;
    // The reference to the master's TDataSource, and the fields that must match, with ";" between.
    QString MasterSource;
    QString MasterFields;
    QString DetailFields;
    // An enumeration that says what SQL holds, and its values for a table and for a procedure.
    QString CommandType;
    QStringList TableCommands;
    QStringList ProcedureCommands;
    // Field types that the library takes for others than ours: ftMemo to ftWideMemo where its long texts are wide.
    QHash<QString, QString> FieldTypes;
};

// A connection's parts. Each is a list of places, of which the first that has a value counts. A place is a property
// ("Database"), a line of a property that holds lines ("Params.Database"), or a part of a property that holds
// "name=value;name=value" ("ConnectionString.Data Source").
struct TConnectionRoles {
    QStringList Provider;
    // What the provider's values mean: "PG" is "PostgreSQL". A value that is not here means itself.
    QHash<QString, QString> Providers;
    // For a class that reaches one system only; Provider then stays empty.
    QString ProviderName;
    QStringList Server;
    QStringList Port;
    QStringList Database;
    QStringList UserName;
    QStringList Password;
};

void SetDataSetRoles(TClass aClass, const TDataSetRoles& roles);
void SetConnectionRoles(TClass aClass, const TConnectionRoles& roles);
// The parts of the class, completed from its parents. What is given stays valid until roles are set again.
const TDataSetRoles& GetDataSetRoles(TClass aClass);
const TConnectionRoles& GetConnectionRoles(TClass aClass);

// The text of the first place that has one; empty without.
QString TextAtPlaces(const TPersistent& object, const QStringList& places);
