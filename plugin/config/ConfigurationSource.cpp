#include "config/ConfigurationSource.h"

ConfigurationSource::ConfigurationSource(QIODevice* stream, const QString& fileName)
    : FFile(fileName)
    , FReader(Opened(stream), stream ? QStringLiteral("default configuration") : fileName)
{
}

QIODevice& ConfigurationSource::Opened(QIODevice* stream)
{
    if (stream)
        return *stream;
    if (!FFile.open(QIODevice::ReadOnly))
        throw EFOpenError(QStringLiteral("Cannot open file \"%1\". %2").arg(FFile.fileName(), FFile.errorString()));
    return FFile;
}
