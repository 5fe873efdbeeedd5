#pragma once

#include "forms/FormBinaryCursor.h"
#include "forms/FormEncoding.h"
#include "forms/FormValue.h"

// Decodes one value of a binary form. The bytes were checked by the reader of the form.
class FormBinaryValue {
public:
    // `doubles` says what the value type 21 is: a double, else a string of UTF-16.
    FormBinaryValue(QByteArrayView bytes, const FormEncoding& encoding, bool doubles);

    FormValue read();

private:
    FormValue value();
    FormValue real(BinaryType type);
    FormValue string(BinaryType type);
    FormValue set();
    FormValue list();
    FormValue collection();
    FormItem item();

    FormEncoding m_encoding;
    QByteArrayView m_bytes;
    FormBinaryCursor m_cursor;
    bool m_doubles;
};

// 80-bit numbers as they stand in a binary form.
namespace FormExtended {

long double fromBytes(QByteArrayView ten);
QByteArray toBytes(long double number);

}
