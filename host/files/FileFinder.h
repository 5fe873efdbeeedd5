#pragma once

#include <QHash>
#include <QString>

// Finds files by names that were written on a system that does not tell case apart. The listing of each folder it
// looked into is kept, so one finder serves one reading of a project and is then thrown away.
class FileFinder {
public:
    // The path as it stands on disk, or an empty string where there is no such file or folder. An exact match wins;
    // else each part of the path is matched without regard to case. `\` separates like `/`, and `..` is resolved.
    QString Find(const QString& path);

private:
    QString FindClean(const QString& path);
    QString FindEntry(const QString& folder, const QString& name);
    const QHash<QString, QString>& Entries(const QString& folder);

    QHash<QString, QHash<QString, QString>> FFolders;
    QHash<QString, QString> FFound;
};

// The same for a single file.
QString FindFileIgnoringCase(const QString& path);

// `path` with `/` only, made absolute against `folder` and cleaned of `.` and `..`; nothing is looked up on disk.
// A path with a drive letter stays as it is, since no folder here is meant by it.
QString ResolvedPath(const QString& folder, const QString& path);

// Whether a path begins with a drive letter or names a network share.
bool IsForeignAbsolutePath(const QString& path);
