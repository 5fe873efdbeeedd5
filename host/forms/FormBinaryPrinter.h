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
        : m_encoding(encoding)
        , m_reals(reals)
    {
    }

    inline static const QByteArray signature = QByteArrayLiteral("TPF0");

    QByteArray value(const FormValue& value) const;
    static QByteArray integer(qint64 number);
    static QByteArray shortString(QByteArrayView bytes);
    static QByteArray header(
        FormNode::Kind kind, std::optional<int> index, QByteArrayView className, QByteArrayView name);

private:
    QByteArray string(const FormValue& value) const;
    QByteArray real(const FormValue& value) const;
    QByteArray set(const QStringList& names) const;
    QByteArray item(const FormItem& item) const;

    FormEncoding m_encoding;
    Reals m_reals;
};
