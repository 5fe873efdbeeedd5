#include "config/StreamWriter.h"

#include "rtl/SysUtils.h"

// Unbuffered: what was buffered and does not fit any more would be put in place without a word.
StreamWriter::StreamWriter(const QString& path)
    : FFile(path)
{
    if (!FFile.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        throw EFCreateError(QStringLiteral("Cannot create file \"%1\". %2").arg(path, FFile.errorString()));
}

void StreamWriter::Write(QStringView text)
{
    FText += text.toUtf8();
}

void StreamWriter::Close()
{
    // A disk that fills up takes the first part and refuses the rest.
    for (qsizetype done = 0; done < FText.size();) {
        const auto written = FFile.write(FText.constData() + done, FText.size() - done);
        if (written <= 0)
            Fail();
        done += written;
    }
    if (!FFile.commit())
        Fail();
}

void StreamWriter::Fail() const
{
    throw EStreamError(QStringLiteral("Cannot write file \"%1\". %2").arg(FFile.fileName(), FFile.errorString()));
}
