#pragma once

#include "forms/FormTree.h"
#include "forms/FormValue.h"

class FormLexer;
struct FormToken;

// Decodes the values of a document that was read, so that its bytes are known to be well formed.
class FormValueReader {
public:
    explicit FormValueReader(const FormTree& tree);

    FormValue read(const FormProperty& property) const;

    static FormValue text(QByteArrayView spelling, const FormEncoding& encoding);
    static FormValue binary(QByteArrayView bytes, const FormEncoding& encoding, bool doubles);

private:
    const FormTree& m_tree;
};
