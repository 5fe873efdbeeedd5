#pragma once

#include "forms/FormDocument.h"

#include <QStringList>

#include <functional>

// Reads form files and holds what would be written against what is there. Changes no file.
class FormsCheck {
public:
    // Called for each failure as it is found, in the order of the files.
    using Listener = std::function<void(const FormError&)>;

    explicit FormsCheck(Listener listener, FormReadOptions options = {});

    // A file, whatever its name; or a folder, for every form file (.dfm .lfm .fmx .nfm .xfm) below it, in the order
    // of their paths. A path that is not there counts as a file that failed. Links to folders are not followed.
    void Check(const QString& path);
    void Check(const QStringList& paths);

    int Files() const { return FFiles; }
    int Read() const { return FRead; }
    int Identical() const { return FIdentical; }
    int Failed() const { return FFiles - FIdentical; }
    QString Summary() const; // files N, read N, identical N, failed N

private:
    void CheckFolder(const QString& path);
    void CheckFile(const QString& path);
    void Compare(const QString& path, const QByteArray& before, const FormDocument& form);

    Listener FListener;
    FormReadOptions FOptions;
    int FFiles = 0;
    int FRead = 0;
    int FIdentical = 0;
};
