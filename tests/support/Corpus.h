#pragma once

#include <QString>
#include <QStringList>

// The public form and project files that stand beside a checkout. They are no part of the repository: where they
// are absent, the tests over them skip themselves.
namespace Corpus {

// The folder of the corpus, or an empty string where there is none. MORVANE_CORPUS names another place.
QString folder();

// Full paths of all files below the folder whose names match one of the patterns, in a stable order.
QStringList files(const QStringList& patterns);

}
