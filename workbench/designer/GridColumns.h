#pragma once

#include <QList>
#include <QString>

class TPersistent;

// A column of a grid as it is drawn at design time.
struct GridColumn {
    QString Title;
    int Width = 64;

    friend bool operator==(const GridColumn&, const GridColumn&) = default;
};

// The columns that are stored with the control, in its collection "Columns".
QList<GridColumn> StoredColumns(const TPersistent& control);
// Those, or else a column for each field of the dataset behind the property `source` that is known without asking a
// database.
QList<GridColumn> GridColumns(const TPersistent& control, const QString& source);
