#pragma once

#include <QDir>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

// What a run of a program printed, and how it ended.
struct Ran {
    int Status = -1;
    QString Output;
    QString Errors;
};

// Runs the real program on a copy of an example, as a user of its own: the home folder is empty at first.
class CommandLineFixture : public ::testing::Test {
protected:
    // Copies examples/<name> into the test's folder and gives the copy's path.
    QString CopyExample(const QString& name);
    // The path of a file of the copy.
    QString InCopy(const QString& name) const { return FCopy + u'/' + name; }
    QByteArray Content(const QString& name) const;

    Ran Morvane(const QStringList& arguments) const;
    Ran Run(const QString& program, const QStringList& arguments, int seconds = 120) const;

    QTemporaryDir Folder;

private:
    QString FCopy;
};

QByteArray TestData(const QString& name);
