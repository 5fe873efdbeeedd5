#pragma once

#include "forms/FormEncoding.h"

#include <QByteArray>
#include <QString>

class FormTree;

// The hand in which a text form is written. New lines follow it, so that they look like their neighbours.
struct FormTextStyle {
    QByteArray LineEnd = QByteArrayLiteral("\r\n");
    QByteArray Step = QByteArrayLiteral("  "); // of indent a level
    FormEncoding Encoding;
    bool RawStrings = false; // characters above 127 as they are, quotes doubled
    bool NarrowBytes = false; // the bytes of a narrow string as they are, also above 127
    bool BreakStrings = true; // a long string goes on in the next line behind a +
    bool PaddedReals = true; // 1.500000000000000000 rather than 1.5
    bool TightIndex = false; // TLabel[2] rather than TLabel [2]
    bool OwnLineClose = false; // ) and } on a line of their own
};

// The blanks in front of what a piece of text begins with, in its line.
QByteArray FormIndentOf(QByteArrayView piece);

// The hand that a form in text is written in, found from what stands in it; where nothing tells, by the file's name.
FormTextStyle FormStyleOf(const FormTree& tree, const QString& fileName);
