#pragma once

#include <QString>

// How the name of a file that takes another's place is written in a text that named the old one.
//
// In the folder of the old file only the last part changes, so that what stands before it stays as it was written,
// variables included. Elsewhere it is the path from `folder`. `\` parts where it did before, or where nothing did and
// `backslash` says so.
QString SpelledLike(
    const QString& written, const QString& folder, const QString& oldFile, const QString& newFile, bool backslash);
