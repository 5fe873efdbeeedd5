#pragma once

#include <QString>

// The name and the class of a form file's root, read from its first bytes; both empty where it is no form file. Text
// and binary form files are known.
struct FormHeader {
    QString Name;
    QString ClassName;

    static FormHeader Read(const QString& fileName);
};
