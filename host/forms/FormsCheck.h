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
    void check(const QString& path);
    void check(const QStringList& paths);

    int files() const { return m_files; }
    int read() const { return m_read; }
    int identical() const { return m_identical; }
    int failed() const { return m_files - m_identical; }
    QString summary() const; // files N, read N, identical N, failed N

private:
    void checkFolder(const QString& path);
    void checkFile(const QString& path);
    void compare(const QString& path, const QByteArray& before, const FormDocument& form);

    Listener m_listener;
    FormReadOptions m_options;
    int m_files = 0;
    int m_read = 0;
    int m_identical = 0;
};
