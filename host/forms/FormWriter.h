#pragma once

#include "forms/FormTree.h"

#include <QByteArray>

// Puts the pieces of a tree together again. Pieces that still lie side by side in the file's own bytes are copied in
// one go, so that writing a form that nobody edited is one copy.
class FormWriter {
public:
    static QByteArray bytes(const FormTree& tree);
    static QByteArray bytes(const FormNode& node);

private:
    void add(QByteArrayView piece);
    void add(const FormNode& node);
    void add(const FormProperty& property);
    QByteArray finish();

    QByteArray m_bytes;
    QByteArrayView m_run; // pieces side by side that are not yet in m_bytes
};
