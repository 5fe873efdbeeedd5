#pragma once

#include "forms/FormTree.h"

#include <QByteArray>

// Puts the pieces of a tree together again. Pieces that still lie side by side in the file's own bytes are copied in
// one go, so that writing a form that nobody edited is one copy.
class FormWriter {
public:
    static QByteArray Bytes(const FormTree& tree);
    static QByteArray Bytes(const FormNode& node);

private:
    void Add(QByteArrayView piece);
    void Add(const FormNode& node);
    void Add(const FormProperty& property);
    QByteArray Finish();

    QByteArray FBytes;
    QByteArrayView FRun; // pieces side by side that are not yet in FBytes
};
