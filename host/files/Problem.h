#pragma once

#include <QList>
#include <QString>

#include <optional>

// Something in a user's file that is not as it should be, with the place where it stands. A value: it is handed up
// to whoever shows it, as one clear message.
struct Problem {
    enum Kind {
        Warning, // the rest of the file is used
        Error // the file, or the edit asked for, is not to be had
    };

    QString FileName;
    int Line = 0; // counted from 1; 0 where there is no place in the file
    int Column = 0; // counted from 1
    QString Text;
    Kind Severity = Warning;

    // "file:line:column: text", without the numbers where there are none.
    QString ToString() const;

    friend bool operator==(const Problem&, const Problem&) = default;
};

using Problems = QList<Problem>;

// What an edit or a save gives back: nothing when it was done, else why it was not.
using Failure = std::optional<Problem>;

// A failure that has no place in the file.
Problem FileError(const QString& fileName, const QString& text);
