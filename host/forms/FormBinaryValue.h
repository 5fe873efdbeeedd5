#pragma once

#include "forms/FormBinaryCursor.h"
#include "forms/FormEncoding.h"
#include "forms/FormValue.h"

// Decodes one value of a binary form. The bytes were checked by the reader of the form.
class FormBinaryValue {
public:
    // `doubles` says what the value type 21 is: a double, else a string of UTF-16.
    FormBinaryValue(QByteArrayView bytes, const FormEncoding& encoding, bool doubles);

    FormValue Read();

private:
    FormValue Value();
    FormValue Real(BinaryType type);
    FormValue String(BinaryType type);
    FormValue Set();
    FormValue List();
    FormValue Collection();
    FormItem Item();

    FormEncoding FEncoding;
    QByteArrayView FBytes;
    FormBinaryCursor FCursor;
    bool FDoubles;
};

// 80-bit numbers as they stand in a binary form.
namespace FormExtended {

long double FromBytes(QByteArrayView ten);
QByteArray ToBytes(long double number);

}
