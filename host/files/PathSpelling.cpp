#include "files/PathSpelling.h"

#include <QDir>
#include <QFileInfo>

QString SpelledLike(
    const QString& written, const QString& folder, const QString& oldFile, const QString& newFile, bool backslash)
{
    const QFileInfo target(newFile);
    const auto last = qMax(written.lastIndexOf(u'/'), written.lastIndexOf(u'\\'));
    if (QFileInfo(oldFile).path() == target.path())
        return written.left(last + 1) + target.fileName();
    auto path = QDir(folder).relativeFilePath(newFile);
    if (written.contains(u'\\') || (last < 0 && backslash))
        path.replace(u'/', u'\\');
    return path;
}
