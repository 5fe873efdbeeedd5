#pragma once

#include "forms/FormNames.h"
#include "forms/FormTextStyle.h"
#include "forms/FormValue.h"

#include <QByteArray>

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
    // A character of a string as it is spelled: between quotes, or by its number.
    struct Unit {
        QByteArray bytes;
        bool quoted;
    };
    static QList<Unit> escaped(const QString& text);
    QList<Unit> raw(const QByteArray& bytes) const;
    QByteArray join(const QList<Unit>& units, const QByteArray& indent) const;
    QByteArray newLine(const QByteArray& indent) const { return m_style.lineEnd + indent; }

    QByteArray close(const QByteArray& indent, bool filled) const
    {
        return m_style.ownLineClose && filled ? newLine(indent) : QByteArray();
    }

    const FormTextStyle& m_style;
};
