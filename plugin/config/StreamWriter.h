#pragma once

#include <QSaveFile>
#include <QString>

// Overwrites a text file, in UTF-8. The text goes to a new file beside the old one, and Close puts it in its place in
// one step: a crash, a full disk or another process never sees a file half written. Without Close nothing changes.
class StreamWriter {
public:
    // Raises EFCreateError.
    explicit StreamWriter(const QString& path);

    void Write(QStringView text);
    // Raises EStreamError when the file could not be written or put in its place.
    void Close();

private:
    [[noreturn]] void Fail() const;

    QSaveFile FFile;
    QByteArray FText;
};
