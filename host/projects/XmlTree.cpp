#include "projects/XmlTree.h"

#include <QRegularExpression>
#include <QXmlStreamReader>

XmlTree::XmlTree(const SourceFile& file, Problems& problems)
    : FFileName(file.FileName())
{
    const auto& text = file.Text();
    // Given as text, so that a declared code page does not matter: the bytes are decoded already.
    QXmlStreamReader reader(text);
    QList<int> open;
    int line = 1;
    qsizetype counted = 0;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        if (token == QXmlStreamReader::StartElement) {
            const auto end = qMin(qsizetype(reader.characterOffset()), text.size());
            const auto start = qMax(qsizetype(0), text.lastIndexOf(u'<', qMax(qsizetype(0), end - 1)));
            line += int(QStringView(text).sliced(counted, start - counted).count(u'\n'));
            counted = start;
            const int column = int(start - (text.lastIndexOf(u'\n', start) + 1)) + 1;
            if (!open.isEmpty())
                FElements[open.last()].Children << int(FElements.size());
            open << int(FElements.size());
            FElements.append({ reader.name().toString(), reader.attributes(), {}, line, column, start, {} });
            if (open.size() > DeepestLevel)
                reader.raiseError(QStringLiteral("elements are nested deeper than %1").arg(DeepestLevel));
        } else if (token == QXmlStreamReader::EndElement) {
            auto& element = FElements[open.takeLast()];
            element.Text = element.Text.trimmed();
        } else if (token == QXmlStreamReader::Characters && !open.isEmpty()) {
            FElements[open.last()].Text += reader.text();
        }
    }
    if (reader.hasError()) {
        problems << Problem { FFileName, int(reader.lineNumber()), qMax(1, int(reader.columnNumber())),
            QStringLiteral("is no sound XML: ") + reader.errorString(), Problem::Error };
    }
}

QList<const XmlTree::Element*> XmlTree::Children(const Element& parent, const QString& name) const
{
    QList<const Element*> found;
    for (const int child : parent.Children) {
        if (name.isEmpty() || FElements[child].Name == name)
            found << &FElements[child];
    }
    return found;
}

const XmlTree::Element* XmlTree::Find(const Element& parent, std::initializer_list<QLatin1String> path) const
{
    const Element* at = &parent;
    for (const auto name : path) {
        const auto found = Children(*at, name);
        if (found.isEmpty())
            return nullptr;
        at = found.first();
    }
    return at;
}

QString XmlTree::ChildText(const Element& parent, QLatin1String name) const
{
    const auto* child = Find(parent, { name });
    return child ? child->Text : QString();
}

QString XmlTree::ChildValue(const Element& parent, QLatin1String name) const
{
    const auto* child = Find(parent, { name });
    return child ? child->Attributes.value(QLatin1String("Value")).toString() : QString();
}

QList<const XmlTree::Element*> XmlTree::All(QLatin1String name) const
{
    QList<const Element*> found;
    for (const auto& element : FElements) {
        if (element.Name == name)
            found << &element;
    }
    return found;
}

namespace {

// The end of the tag that begins there, over what its attributes quote; -1 when it has none.
qsizetype EndOfTag(const QString& text, qsizetype start)
{
    QChar quote;
    for (auto at = start; at < text.size(); ++at) {
        const auto c = text[at];
        if (quote.isNull() && (c == u'"' || c == u'\''))
            quote = c;
        else if (c == quote)
            quote = QChar();
        else if (quote.isNull() && c == u'>')
            return at;
    }
    return -1;
}

}

std::optional<SourceEdit> XmlTree::EditOf(
    const QString& text, const Element& element, QLatin1String attribute, const QString& value)
{
    const auto end = EndOfTag(text, element.Start);
    const QRegularExpression written(QStringLiteral("\\s%1\\s*=\\s*(?:\"([^\"]*)\"|'([^']*)')").arg(attribute));
    const auto match = written.match(text.mid(element.Start, end - element.Start));
    if (end < 0 || !match.hasMatch())
        return {};
    const int group = match.capturedStart(1) >= 0 ? 1 : 2;
    return SourceEdit { element.Start + match.capturedStart(group), match.capturedLength(group),
        value.toHtmlEscaped() };
}

std::optional<SourceEdit> XmlTree::EditOfText(const QString& text, const Element& element, const QString& value)
{
    const auto start = EndOfTag(text, element.Start) + 1;
    const auto end = start > 0 ? text.indexOf(u'<', start) : -1;
    if (end < 0 || text[start - 2] == u'/')
        return {};
    const auto found = text.mid(start, end - start);
    const auto trimmed = found.trimmed();
    return SourceEdit { start + found.indexOf(trimmed), trimmed.size(), value.toHtmlEscaped() };
}

Problem XmlTree::ProblemAt(const Element& element, const QString& text, Problem::Kind severity) const
{
    return { FFileName, element.Line, element.Column, text, severity };
}
