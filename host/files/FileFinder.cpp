#include "files/FileFinder.h"

#include <QDir>
#include <QFileInfo>

#include <climits>

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
    const auto clean = ResolvedPath(QDir::currentPath(), path);
    return clean.size() > PATH_MAX ? QString() : FindClean(clean);
}

QString FileFinder::FindClean(const QString& path)
{
    if (const auto known = FFound.constFind(path); known != FFound.cend())
        return *known;
    const auto slash = path.lastIndexOf(u'/');
    QString found = path;
    if (path.size() > 1) {
        const auto folder = slash == 0 ? QStringLiteral("/") : FindClean(path.left(slash));
        found = folder.isEmpty() ? QString() : FindEntry(folder, path.sliced(slash + 1));
    }
    FFound.insert(path, found);
    return found;
}

QString FileFinder::FindEntry(const QString& folder, const QString& name)
{
    const auto prefix = folder.endsWith(u'/') ? folder : folder + u'/';
    const auto& entries = Entries(folder);
    const auto entry = entries.constFind(folded(name));
    // A folder that cannot be listed may still let its files be opened by name.
    const bool listed = entry != entries.cend();
    if ((listed || entries.isEmpty()) && QFileInfo::exists(prefix + name))
        return prefix + name;
    return listed ? prefix + *entry : QString();
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
