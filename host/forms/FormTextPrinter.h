#pragma once

#include "forms/FormNames.h"
#include "forms/FormTextStyle.h"
#include "forms/FormValue.h"

#include <QByteArray>

// Spells headers and values in text. `indent` is what stands before the property of the value in its line.
class FormTextPrinter {
public:
    explicit FormTextPrinter(const FormTextStyle& style)
        : FStyle(style)
    {
    }

    QByteArray header(const FormNames& names) const; // object Edit1: TEdit [2]
    static const char* Keyword(FormNode::Kind kind);
    QByteArray Value(const FormValue& value, const QByteArray& indent) const;

private:
    QByteArray String(const FormValue& value, const QByteArray& indent) const;
    QByteArray List(const QList<FormValue>& values, const QByteArray& indent) const;
    QByteArray Collection(const QList<FormItem>& items, const QByteArray& indent) const;
    QByteArray Binary(const QByteArray& data, const QByteArray& indent) const;
    // A character of a string as it is spelled: between quotes, or by its number.
    struct Unit {
        QByteArray Bytes;
        bool Quoted;
    };
    static QList<Unit> Escaped(const QString& text);
    QList<Unit> Raw(const QByteArray& bytes) const;
    QByteArray Join(const QList<Unit>& units, const QByteArray& indent) const;
    QByteArray NewLine(const QByteArray& indent) const { return FStyle.LineEnd + indent; }

    QByteArray Close(const QByteArray& indent, bool filled) const
    {
        return FStyle.OwnLineClose && filled ? NewLine(indent) : QByteArray();
    }

    const FormTextStyle& FStyle;
};
