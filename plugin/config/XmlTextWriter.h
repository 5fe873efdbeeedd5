#pragma once

#include <QObject>
#include <QStringList>

class StreamWriter;

// Writes XML in the form of the configuration file: no declaration, one element a line, two blanks of indent a level,
// a blank before the short end "/>", lines that end in CR LF. Names are written as they are given: one that is no XML
// name gives a file that no reader takes.
class XmlTextWriter : public QObject {
    Q_OBJECT

public:
    // The stream must outlive the writer; closing it is the caller's.
    explicit XmlTextWriter(StreamWriter& stream);

    void WriteStartElement(const QString& name);
    // Closes the current element, with the short end when it has no content.
    void WriteEndElement();
    // Closes the current element with its name; without content it stands on two lines.
    void WriteFullEndElement();
    void WriteElementString(const QString& name, const QString& value);
    void WriteAttributeString(const QString& name, const QString& value);

private:
    void EndLine();
    void CloseStart();
    QString Indent() const;

    StreamWriter& FStream;
    QStringList FOpen;
    bool FInStart = false;
};

// The writer behind a plain object. Raises EInvalidCast for nil and for any other object.
XmlTextWriter& AsXmlTextWriter(QObject* object);
