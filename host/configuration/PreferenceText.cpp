#include "configuration/PreferenceText.h"

#include <QXmlStreamReader>

namespace {

const auto Preferences = QStringLiteral("Preferences");

// Where an element stands in the text, tags included, and where its content does. An element in its empty form has
// its content behind it, with length 0.
struct Range {
    qsizetype Start = 0;
    qsizetype End = 0;
    qsizetype ContentStart = 0;
    qsizetype ContentEnd = 0;
    bool IsEmptyForm = false;
};

// Walks the text to the preferences; positions are in UTF-16 units of the text.
class Finder {
public:
    explicit Finder(const QString& text)
        : FText(text)
        , FReader(text)
    {
        FReader.setNamespaceProcessing(false);
    }

    std::optional<Range> Section()
    {
        while (!FReader.atEnd())
            if (FReader.readNext() == QXmlStreamReader::StartElement && FReader.qualifiedName() == Preferences)
                return Current();
        return {};
    }
    std::optional<Range> Preference(const QString& name)
    {
        while (!FReader.atEnd() && FReader.readNext() != QXmlStreamReader::Invalid) {
            if (FReader.isEndElement() && FReader.qualifiedName() == Preferences)
                return {};
            if (FReader.isStartElement() && FReader.qualifiedName() == Preferences)
                FInside = true;
            else if (FInside && FReader.isStartElement()
                && FReader.qualifiedName().compare(name, Qt::CaseInsensitive) == 0)
                return Current();
        }
        return {};
    }

private:
    // The element whose start was read just now; reads on to its end.
    std::optional<Range> Current()
    {
        Range range;
        range.ContentStart = FReader.characterOffset();
        range.Start = FText.lastIndexOf(u'<', range.ContentStart - 1);
        range.IsEmptyForm = FText.at(range.ContentStart - 2) == u'/';
        FReader.skipCurrentElement();
        if (FReader.hasError())
            return {};
        range.End = FReader.characterOffset();
        range.ContentEnd = range.IsEmptyForm ? range.ContentStart : FText.lastIndexOf(u"</", range.End - 1);
        return range;
    }

    const QString& FText;
    QXmlStreamReader FReader;
    bool FInside = false;
};

bool IsUtf8(const QByteArray& content)
{
    QXmlStreamReader reader(content);
    reader.readNext();
    const auto encoding = reader.documentEncoding();
    return encoding.isEmpty() || encoding.compare(u"UTF-8", Qt::CaseInsensitive) == 0;
}

QString Element(const QString& name, const QString& value)
{
    return u'<' + name + u'>' + value.toHtmlEscaped() + QStringLiteral("</") + name + u'>';
}

// A new line before the end of the section, on a line of its own where the end stands on one.
void Append(QString& text, const Range& section, const QString& element)
{
    const auto lineEnd = text.contains(QStringLiteral("\r\n")) ? QStringLiteral("\r\n") : QStringLiteral("\n");
    const auto line = QStringLiteral("    ") + element + lineEnd;
    if (section.IsEmptyForm) {
        text.replace(section.Start, section.End - section.Start,
            u'<' + Preferences + u'>' + lineEnd + line + QStringLiteral("  </") + Preferences + u'>');
        return;
    }
    const auto lineStart = text.lastIndexOf(u'\n', section.ContentEnd - 1) + 1;
    const bool alone = text.mid(lineStart, section.ContentEnd - lineStart).trimmed().isEmpty();
    text.insert(alone ? lineStart : section.ContentEnd, alone ? line : element);
}

}

std::optional<QString> PreferenceIn(const QByteArray& content, const QString& name)
{
    const auto text = QString::fromUtf8(content);
    const auto found = Finder(text).Preference(name);
    if (!found)
        return {};
    QXmlStreamReader value(text.mid(found->Start, found->End - found->Start));
    value.setNamespaceProcessing(false);
    value.readNextStartElement();
    return value.readElementText(QXmlStreamReader::SkipChildElements);
}

std::optional<QByteArray> WithPreference(const QByteArray& content, const QString& name, const QString& value)
{
    if (!IsUtf8(content))
        return {};
    auto text = QString::fromUtf8(content);
    if (const auto found = Finder(text).Preference(name)) {
        text.replace(found->Start, found->End - found->Start, Element(name, value));
        return text.toUtf8();
    }
    const auto section = Finder(text).Section();
    if (!section)
        return {};
    Append(text, *section, Element(name, value));
    return text.toUtf8();
}

std::optional<QByteArray> WithPreferencesOf(const QByteArray& content, const QByteArray& other)
{
    if (!IsUtf8(content) || !IsUtf8(other))
        return {};
    auto text = QString::fromUtf8(content);
    const auto source = QString::fromUtf8(other);
    const auto to = Finder(text).Section();
    const auto from = Finder(source).Section();
    if (!to || !from)
        return {};
    text.replace(to->Start, to->End - to->Start, source.mid(from->Start, from->End - from->Start));
    return text.toUtf8();
}
