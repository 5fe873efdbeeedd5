#include "projects/FormHeader.h"

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

namespace {

// Enough for a mark, a resource's head and two names.
constexpr qint64 headSize = 1024;

FormHeader binaryHeader(const QByteArray& bytes, qsizetype at)
{
    const auto shortText = [&]() {
        const auto size = at < bytes.size() ? quint8(bytes[at]) : 0;
        const auto text = QString::fromUtf8(bytes.mid(at + 1, size));
        at += size + 1;
        return text;
    };
    // A prefix tells of an inherited or an inline root, and of a position.
    if (at < bytes.size() && (quint8(bytes[at]) & 0xF0) == 0xF0)
        at += (quint8(bytes[at]) & 2) ? 3 : 1;
    const auto className = shortText();
    return { shortText(), className };
}

}

FormHeader FormHeader::Read(const QString& fileName)
{
    QFile file(fileName);
    if (!QFileInfo(fileName).isFile() || !file.open(QIODevice::ReadOnly))
        return {};
    const auto bytes = file.read(headSize);
    if (const auto binary = bytes.indexOf("TPF0"); binary >= 0 && (binary == 0 || bytes.startsWith('\xFF')))
        return binaryHeader(bytes, binary + 4);
    static const QRegularExpression head(
        QStringLiteral("^\\x{FEFF}?\\s*(?:object|inherited|inline)\\s+(\\w+)\\s*:\\s*([\\w.]+)"),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    const auto match = head.match(QString::fromUtf8(bytes));
    return { match.captured(1), match.captured(2) };
}
