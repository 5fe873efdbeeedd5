#include "files/FileFinder.h"

#include <QDir>
#include <QFileInfo>

namespace {

// Folded so that names meet that differ in case or in the way their accents are composed.
QString folded(const QString& name)
{
    return name.normalized(QString::NormalizationForm_C).toCaseFolded();
}

}

bool IsForeignAbsolutePath(const QString& path)
{
    if (path.startsWith(QLatin1String("\\\\")) || path.startsWith(QLatin1String("//")))
        return true;
    return path.size() >= 2 && path[0].isLetter() && path[1] == u':';
}

QString ResolvedPath(const QString& folder, const QString& path)
{
    const bool foreign = IsForeignAbsolutePath(path);
    QString slashed = path;
    slashed.replace(u'\\', u'/');
    if (foreign || slashed.startsWith(u'/'))
        return QDir::cleanPath(slashed);
    return QDir::cleanPath(folder + u'/' + slashed);
}

QString FileFinder::Find(const QString& path)
{
    if (path.isEmpty() || IsForeignAbsolutePath(path))
        return {};
    const auto wanted = ResolvedPath(QDir::currentPath(), path);
    if (const auto known = FFound.constFind(wanted); known != FFound.cend())
        return *known;
    QString found = QStringLiteral("/");
    for (const auto& part : wanted.split(u'/', Qt::SkipEmptyParts)) {
        found = FindEntry(found, part);
        if (found.isEmpty())
            break;
    }
    FFound.insert(wanted, found);
    return found;
}

QString FileFinder::FindEntry(const QString& folder, const QString& name)
{
    const auto exact = folder.endsWith(u'/') ? folder + name : folder + u'/' + name;
    if (QFileInfo::exists(exact))
        return exact;
    const auto& entries = Entries(folder);
    const auto entry = entries.constFind(folded(name));
    if (entry == entries.cend())
        return {};
    return folder.endsWith(u'/') ? folder + *entry : folder + u'/' + *entry;
}

const QHash<QString, QString>& FileFinder::Entries(const QString& folder)
{
    if (const auto known = FFolders.constFind(folder); known != FFolders.cend())
        return *known;
    QHash<QString, QString> entries;
    const auto names = QDir(folder).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    for (const auto& name : names) {
        if (const auto key = folded(name); !entries.contains(key))
            entries.insert(key, name);
    }
    return *FFolders.insert(folder, entries);
}

QString FindFileIgnoringCase(const QString& path)
{
    return FileFinder().Find(path);
}
