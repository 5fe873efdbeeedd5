#pragma once

#include <QFile>
#include <QRegularExpression>
#include <QStringList>

#include <string>

// The plug-in's log holds the first half of each line, without its end. A log is compared by what is left: the length
// of each message, which is that of the whole one, and as much of the text as stands in the file.
namespace LogText {

// Date, time, dash and two tabs before each message; two characters of line end behind it.
constexpr qsizetype StampLength = 23;
constexpr qsizetype LineEnd = 2;

inline std::string Entry(qsizetype length, const QString& visible)
{
    return std::to_string(length) + ": " + visible.toStdString() + '\n';
}

// What a log with these messages holds.
inline std::string Of(const QStringList& messages)
{
    std::string text;
    for (const auto& message : messages) {
        const auto visible = (StampLength + message.size() + LineEnd) / 2 - StampLength;
        text += Entry(message.size(), message.left(std::max<qsizetype>(0, visible)));
    }
    return text;
}

// What the file holds.
inline std::string Read(const QString& fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        return "no log";
    const auto bytes = file.readAll();
    const auto asCharacters = QString::fromLatin1(bytes);
    static const QRegularExpression date(
        QStringLiteral("(?:\\d\\x00){2}\\.\\x00(?:\\d\\x00){2}\\.\\x00(?:\\d\\x00){4} \\x00"));
    QList<qsizetype> starts;
    for (auto found = date.globalMatch(asCharacters); found.hasNext();)
        starts << found.next().capturedStart();
    starts << bytes.size();
    std::string text;
    for (qsizetype i = 0; i + 1 < starts.size(); ++i) {
        const auto length = starts[i + 1] - starts[i];
        QString line(length / 2, u' ');
        memcpy(line.data(), bytes.constData() + starts[i], size_t(line.size()) * 2);
        text += Entry(length - StampLength - LineEnd, line.mid(StampLength));
    }
    return text;
}

}
