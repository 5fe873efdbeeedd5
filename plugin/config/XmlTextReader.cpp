#include "config/XmlTextReader.h"

XmlTextReader::XmlTextReader(QIODevice& stream, const QString& name)
    : FReader(&stream)
    , FName(name)
{
    FReader.setNamespaceProcessing(false);
}

bool XmlTextReader::Read()
{
    FAttribute = -1;
    FAttributes.clear();
    FNodeType = ntNone;
    while (FNodeType == ntNone && !FReader.atEnd()) {
        switch (FReader.readNext()) {
        case QXmlStreamReader::StartElement:
            FNodeType = ntElementStart;
            FAttributes = FReader.attributes();
            break;
        case QXmlStreamReader::EndElement:
            FNodeType = ntElementEnd;
            break;
        case QXmlStreamReader::Characters:
            if (!FReader.isWhitespace())
                FNodeType = ntText;
            break;
        default:
            break;
        }
    }
    if (FReader.hasError())
        Fail();
    return FNodeType != ntNone;
}

QStringView XmlTextReader::GetFullName() const
{
    return OnAttribute() ? FAttributes.at(FAttribute).qualifiedName() : FReader.qualifiedName();
}

QStringView XmlTextReader::GetValue() const
{
    return OnAttribute() ? FAttributes.at(FAttribute).value() : FReader.text();
}

void XmlTextReader::Fail()
{
    FNodeType = ntNone;
    throw EXmlError(QStringLiteral("%1:%2:%3: %4")
                        .arg(FName)
                        .arg(FReader.lineNumber())
                        .arg(FReader.columnNumber() + 1)
                        .arg(FReader.errorString().trimmed()));
}
