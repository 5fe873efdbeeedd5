#include "forms/FormError.h"

#include "forms/FormEncoding.h"

QString FormError::ToString() const
{
    if (Line > 0)
        return QStringLiteral("%1:%2:%3: %4").arg(File).arg(Line).arg(Column).arg(Message);
    return QStringLiteral("%1: %2 (at byte %3)").arg(File, Message).arg(Offset);
}

FormError FormErrorAt(
    QByteArrayView text, qsizetype textStart, const FormEncoding& encoding, qsizetype offset, const QString& message)
{
    int line = 1;
    qsizetype lineStart = textStart;
    for (qsizetype at = lineStart; at < offset; ++at) {
        const bool pair = text[at] == '\r' && at + 1 < text.size() && text[at + 1] == '\n';
        if (pair || (text[at] != '\r' && text[at] != '\n'))
            continue;
        ++line;
        lineStart = at + 1;
    }
    const auto column = encoding.Characters(text.sliced(lineStart, offset - lineStart)) + 1;
    return { {}, line, static_cast<int>(column), offset, message };
}
