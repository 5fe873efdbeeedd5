#include "config/XmlTextWriter.h"

#include "config/StreamWriter.h"
#include "rtl/SysUtils.h"

namespace {

constexpr int Indentation = 2;
constexpr QChar IndentChar = u' ';

// Characters that a reader would take for mark-up or change: it turns line ends into LF, and white space in an
// attribute into blanks.
QString Escaped(const QString& text, bool inAttribute)
{
    auto result = text.toHtmlEscaped();
    result.replace(u'\r', QStringLiteral("&#13;"));
    if (inAttribute)
        result.replace(u'\n', QStringLiteral("&#10;")).replace(u'\t', QStringLiteral("&#9;"));
    return result;
}

}

XmlTextWriter::XmlTextWriter(StreamWriter& stream)
    : FStream(stream)
{
}

QString XmlTextWriter::Indent() const
{
    return QString(FOpen.size() * Indentation, IndentChar);
}

void XmlTextWriter::EndLine()
{
    FStream.Write(u"\r\n");
}

void XmlTextWriter::CloseStart()
{
    if (!FInStart)
        return;
    FStream.Write(u">");
    EndLine();
    FInStart = false;
}

void XmlTextWriter::WriteStartElement(const QString& name)
{
    CloseStart();
    FStream.Write(Indent() + u'<' + name);
    FOpen << name;
    FInStart = true;
}

void XmlTextWriter::WriteAttributeString(const QString& name, const QString& value)
{
    FStream.Write(u' ' + name + u"=\""_qs + Escaped(value, true) + u'"');
}

void XmlTextWriter::WriteElementString(const QString& name, const QString& value)
{
    CloseStart();
    FStream.Write(Indent() + u'<' + name + u'>' + Escaped(value, false) + u"</"_qs + name + u'>');
    EndLine();
}

void XmlTextWriter::WriteEndElement()
{
    if (!FInStart)
        return WriteFullEndElement();
    FOpen.removeLast();
    FInStart = false;
    FStream.Write(u" />");
    EndLine();
}

void XmlTextWriter::WriteFullEndElement()
{
    CloseStart();
    const auto name = FOpen.takeLast();
    FStream.Write(Indent() + u"</"_qs + name + u'>');
    EndLine();
}

XmlTextWriter& AsXmlTextWriter(QObject* object)
{
    if (auto* writer = qobject_cast<XmlTextWriter*>(object))
        return *writer;
    throw EInvalidCast(QStringLiteral("Invalid class typecast"));
}
