#pragma once

#include <QCommandLineParser>
#include <QString>
#include <QStringList>

// Exit statuses of the command line.
enum ExitStatus { Done = 0, Failed = 1, WrongUsage = 2 };

// One verb of the command line. To add one: derive a class, declare its options in its constructor and its work in Run,
// and give it a row in the table of CommandLine.cpp.
class Verb {
public:
    Verb(const QString& name, const QString& description);
    virtual ~Verb() = default;
    Verb(const Verb&) = delete;
    Verb& operator=(const Verb&) = delete;

    const QString& Name() const { return FName; }
    // Reads the arguments (the verb's own first) and runs. A wrong usage is told with the verb's help.
    ExitStatus Execute(const QStringList& arguments);

protected:
    virtual ExitStatus Run() = 0;
    // For wrong combinations of options: says why and shows the help.
    ExitStatus Misused(const QString& why) const;
    QCommandLineParser Parser;

    static void Print(const QString& text);
    static void Complain(const QString& text);

private:
    QString FName;
};
