#pragma once

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QString>
#include <QTemporaryDir>

// A folder of files written for one test, gone with it.
class ProjectFolder {
public:
    QString Path(const QString& name = {}) const
    {
        const auto root = QFileInfo(FFolder.path()).canonicalFilePath();
        return name.isEmpty() ? root : root + u'/' + name;
    }

    // Writes a file, with the folders it needs, and gives its full path.
    QString Write(const QString& name, const QByteArray& bytes) const
    {
        const auto path = Path(name);
        QDir().mkpath(QFileInfo(path).path());
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
            qFatal("cannot write %s", qPrintable(path));
        return path;
    }

    static QByteArray Read(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<cannot be read>");
    }

private:
    QTemporaryDir FFolder;
};
