#pragma once

#include "forms/FormEncoding.h"
#include "forms/FormLexer.h"
#include "forms/FormValue.h"

// Decodes one value of a form in text. The spelling was checked by the reader of the form; of bytes that were not, the
// part up to the first wrong token is decoded.
class FormTextValue {
public:
    FormTextValue(QByteArrayView spelling, const FormEncoding& encoding);

    FormValue read();

private:
    void advance() { m_token = m_lexer.next(); }
    FormValue value();
    FormValue symbol();
    FormValue number();
    FormValue string();
    FormValue set();
    FormValue list();
    FormValue collection();
    FormItem item();
    QString name();

    FormEncoding m_encoding;
    FormLexer m_lexer;
    FormToken m_token;
};
