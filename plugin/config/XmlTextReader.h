#pragma once

#include "rtl/SysUtils.h"

#include <QXmlStreamReader>

class QFile;

// A file that is no XML. The message begins with file:line:column, counted from 1.
MRV_EXCEPTION(EXmlError, Exception);

// An element's start (its empty form as well), its end, or text that is not only white space.
enum TXmlNodeType { ntNone, ntElementStart, ntElementEnd, ntText };

// Reads XML node by node. Comments, processing instructions and white space are passed over; an element in its empty
// form is a start and an end. Names are full names, with their prefix.
class XmlTextReader {
public:
    // Reads from where the device stands; it must outlive the reader. The name stands in messages.
    XmlTextReader(QIODevice& stream, const QString& name);

    // Goes to the next node; false at the end. Raises EXmlError.
    bool Read();
    TXmlNodeType GetNodeType() const { return FNodeType; }
    // The name of an element or, after MoveToAttribute, of the attribute. Valid until the next Read.
    QStringView GetFullName() const;
    // The text of a text node or, after MoveToAttribute, the attribute's value. Valid until the next Read.
    QStringView GetValue() const;
    // 0 for every node but an element's start.
    int GetAttributeCount() const { return int(FAttributes.size()); }
    // In document order. The node's own name and value come back with the next Read.
    void MoveToAttribute(int index) { FAttribute = index; }

    bool IsStart() const { return FNodeType == ntElementStart; }
    bool IsEnd() const { return FNodeType == ntElementEnd; }

private:
    bool OnAttribute() const { return FAttribute >= 0; }
    void Fail();

    QXmlStreamReader FReader;
    QXmlStreamAttributes FAttributes;
    QString FName;
    TXmlNodeType FNodeType = ntNone;
    int FAttribute = -1;
};
