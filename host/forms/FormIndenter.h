#pragma once

#include "forms/FormJournal.h"
#include "forms/FormTree.h"

// Moves the lines of a node in a text form to another depth.
class FormIndenter {
public:
    FormIndenter(FormTree& tree, FormJournal& journal)
        : m_tree(tree)
        , m_journal(journal)
    {
    }

    // Every line of the node that begins with `from` begins with `to` afterwards.
    void indent(FormNode& node, const QByteArray& from, const QByteArray& to);

private:
    void visit(FormNode& node);
    void visit(FormProperty& property);
    QByteArrayView moved(QByteArrayView piece); // the piece itself where nothing changes

    FormTree& m_tree;
    FormJournal& m_journal;
    QByteArray m_from;
    QByteArray m_to;
    bool m_lineStart = true; // the next piece begins a line
};
