#pragma once

#include "forms/FormDocument.h"
#include "forms/FormError.h"
#include "forms/FormTextPrinter.h"

#include <QByteArray>

#include <optional>

// Turns a form in text into a binary form and back. Every value is kept.
//
// The binary form is the one that compilers' stream readers make of the same text: every number with a point is an
// extended one (the suffixes s, c and d say how it is kept in memory, not what it is), a string is narrow unless a #n
// of 128 or more stands in it, Null is an identifier. Bytes above 127 in narrow strings stay as they are both ways.
namespace FormConverter {

// Fails where a name has more than the 255 bytes that a binary form has room for. Of a binary form: its bare bytes.
FormResult<QByteArray> ToBinary(const FormDocument& form);

// Fails where a name cannot be written in text. The encoding is the form's own, whatever the style says. Of a form in
// text: its bytes.
FormResult<QByteArray> ToText(const FormDocument& form, const FormTextStyle& style);

// Reads a form file and writes it in the other format, in place of what was at `target`; with the line ends of the
// target's kind of file (.lfm: LF, others: CRLF). Returns what went wrong; the old file is whole then.
std::optional<FormError> ConvertFile(const QString& source, const QString& target);

}
