#pragma once

#include "forms/FormEncoding.h"
#include "forms/FormLexer.h"
#include "forms/FormValue.h"

// Decodes one value of a form in text. The spelling was checked by the reader of the form; of bytes that were not, the
// part up to the first wrong token is decoded.
class FormTextValue {
public:
    FormTextValue(QByteArrayView spelling, const FormEncoding& encoding);

    FormValue Read();

private:
    void Advance() { FToken = FLexer.Next(); }
    FormValue Value();
    FormValue Symbol();
    FormValue Number();
    FormValue String();
    FormValue Set();
    FormValue List();
    FormValue Collection();
    FormItem Item();
    QString Name();

    FormEncoding FEncoding;
    FormLexer FLexer;
    FormToken FToken;
};
