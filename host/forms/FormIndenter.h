#pragma once

#include "forms/FormJournal.h"
#include "forms/FormTree.h"

// Moves the lines of a node in a text form to another depth.
class FormIndenter {
public:
    FormIndenter(FormTree& tree, FormJournal& journal)
        : FTree(tree)
        , FJournal(journal)
    {
    }

    // Every line of the node that begins with `from` begins with `to` afterwards.
    void Indent(FormNode& node, const QByteArray& from, const QByteArray& to);

private:
    void Visit(FormNode& node);
    void Visit(FormProperty& property);
    QByteArrayView Moved(QByteArrayView piece); // the piece itself where nothing changes

    FormTree& FTree;
    FormJournal& FJournal;
    QByteArray FFrom;
    QByteArray FTo;
    bool FLineStart = true; // the next piece begins a line
};
