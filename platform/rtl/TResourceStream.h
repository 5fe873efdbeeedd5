#pragma once

#include <QBuffer>
#include <QString>

// Kinds of resources, as numbered by the platform.
enum TResourceType { RT_BITMAP = 2, RT_RCDATA = 10 };

// The place of a package's resource among Qt's: ":/package/<type>/<name>". A package's .qrc puts its files there.
QString ResourcePath(const QString& name, TResourceType type);

// A resource of the package, open for reading from its start. Raises EResNotFound for one that does not exist.
class TResourceStream : public QBuffer {
public:
    TResourceStream(const QString& name, TResourceType type);
};
