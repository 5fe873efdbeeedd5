#pragma once

#include "forms/FormBinaryCursor.h"
#include "forms/FormEncoding.h"
#include "forms/FormNode.h"
#include "forms/FormValue.h"

#include <QByteArray>

// Spells values and headers in the bytes of a binary form. A name has room for 255 bytes and is cut there.
class FormBinaryPrinter {
public:
    // Numbers with a point in the form of their kind (single, currency, date ...), or all of them extended.
    enum class Reals { OfTheirKind, Extended };

    explicit FormBinaryPrinter(const FormEncoding& encoding, Reals reals = Reals::OfTheirKind)
        : FEncoding(encoding)
        , FReals(reals)
    {
    }

    inline static const QByteArray Signature = QByteArrayLiteral("TPF0");

    QByteArray Value(const FormValue& value) const;
    static QByteArray Integer(qint64 number);
    static QByteArray ShortString(QByteArrayView bytes);
    static QByteArray Header(
        FormNode::Kind kind, std::optional<int> index, QByteArrayView className, QByteArrayView name);

private:
    QByteArray String(const FormValue& value) const;
    QByteArray Real(const FormValue& value) const;
    QByteArray Set(const QStringList& names) const;
    QByteArray Item(const FormItem& item) const;

    FormEncoding FEncoding;
    Reals FReals;
};
