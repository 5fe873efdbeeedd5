#include "support/Corpus.h"

#include <QDirIterator>

namespace Corpus {

QString folder()
{
    const auto named = qEnvironmentVariable("MORVANE_CORPUS");
    const QDir place(named.isEmpty() ? QStringLiteral(MORVANE_SOURCE_DIR "/../shared/corpus") : named);
    return place.exists() ? place.canonicalPath() : QString();
}

QStringList files(const QStringList& patterns)
{
    QStringList found;
    const auto place = folder();
    if (place.isEmpty())
        return found;
    QDirIterator walk(place, patterns, QDir::Files, QDirIterator::Subdirectories);
    while (walk.hasNext())
        found << walk.next();
    found.sort();
    return found;
}

}
