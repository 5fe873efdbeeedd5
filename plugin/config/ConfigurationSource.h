#pragma once

#include "config/XmlTextReader.h"

#include <QFile>

// What one load reads: the stream given or, when it is nil, the file, which is opened for this load alone.
class ConfigurationSource {
public:
    // Raises EFOpenError when the file cannot be read. The stream must outlive the source.
    ConfigurationSource(QIODevice* stream, const QString& fileName);

    XmlTextReader& Reader() { return FReader; }

private:
    QIODevice& Opened(QIODevice* stream);

    QFile FFile;
    XmlTextReader FReader;
};
