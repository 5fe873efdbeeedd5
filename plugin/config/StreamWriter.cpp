#include "config/StreamWriter.h"

#include "rtl/SysUtils.h"

StreamWriter::StreamWriter(const QString& path)
    : FFile(path)
{
    if (!FFile.open(QIODevice::WriteOnly))
        throw EFCreateError(QStringLiteral("Cannot create file \"%1\". %2").arg(path, FFile.errorString()));
}

void StreamWriter::Write(QStringView text)
{
    FFile.write(text.toUtf8());
}

void StreamWriter::Close()
{
    // What is still buffered may not fit any more, and a commit does not tell of that.
    if (!FFile.flush() || !FFile.commit())
        throw EStreamError(QStringLiteral("Cannot write file \"%1\". %2").arg(FFile.fileName(), FFile.errorString()));
}
