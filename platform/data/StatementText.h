#pragma once

#include <QString>
#include <QStringList>

// The text of an SQL statement with its parameters taken out.
struct TParsedStatement {
    // A "?" stands where a parameter stood, a blank where a comment stood; without the semicolon and blanks at the end.
    QString Text;
    // The parameters' names, one for each "?", in order; a name that is used twice stands twice.
    QStringList Names;
};

// Finds the parameters (":Name", and ":"Some name""). What stands in quotes, brackets and comments is no parameter, nor
// is what follows a double colon.
TParsedStatement ParseStatement(const QString& sql);

// The word that the statement begins with, in upper case, behind blanks, comments and parentheses: "SELECT".
QString FirstKeyword(const QString& sql);
