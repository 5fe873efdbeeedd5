#pragma once

#include "files/Problem.h"

#include <QByteArray>
#include <QList>
#include <QString>

// What a file is to hold.
struct FileContent {
    QString FileName;
    QByteArray Bytes;

    friend bool operator==(const FileContent&, const FileContent&) = default;
};

// Saves all files of one gesture, or none of them. Every file is first written whole beside its target, so that a
// full disk or a folder that cannot be written shows before anything is replaced; then they are put in place one by
// one, and where that fails those already replaced get their old content back. The answer names the file and the
// reason.
Failure SaveTogether(const QList<FileContent>& files);
