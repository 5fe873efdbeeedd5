#pragma once

#include "forms/FormEncoding.h"
#include "forms/FormNames.h"
#include "forms/FormValue.h"

#include <QByteArray>

// The hand in which a text form is written. New lines follow it, so that they look like their neighbours.
struct FormTextStyle {
    QByteArray lineEnd = QByteArrayLiteral("\r\n");
    QByteArray step = QByteArrayLiteral("  "); // of indent a level
    FormEncoding encoding;
    bool rawStrings = false; // characters above 127 as they are, quotes doubled, long strings in one line
    bool paddedReals = true; // 1.500000000000000000 rather than 1.5
    bool tightIndex = false; // TLabel[2] rather than TLabel [2]
    bool ownLineClose = false; // ) and } on a line of their own
};

// Spells headers and values in text. `indent` is what stands before the property of the value in its line.
class FormTextPrinter {
public:
    explicit FormTextPrinter(const FormTextStyle& style)
        : m_style(style)
    {
    }

    QByteArray header(const FormNames& names) const; // object Edit1: TEdit [2]
    static const char* keyword(FormNode::Kind kind);
    QByteArray value(const FormValue& value, const QByteArray& indent) const;

private:
    QByteArray string(const FormValue& value, const QByteArray& indent) const;
    QByteArray list(const QList<FormValue>& values, const QByteArray& indent) const;
    QByteArray collection(const QList<FormItem>& items, const QByteArray& indent) const;
    QByteArray binary(const QByteArray& data, const QByteArray& indent) const;
    QByteArray escaped(const QString& text, const QByteArray& indent) const;
    QByteArray raw(const QByteArray& bytes) const;
    QByteArray newLine(const QByteArray& indent) const { return m_style.lineEnd + indent; }

    QByteArray close(const QByteArray& indent, bool filled) const
    {
        return m_style.ownLineClose && filled ? newLine(indent) : QByteArray();
    }

    const FormTextStyle& m_style;
};
