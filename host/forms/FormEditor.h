#pragma once

#include "forms/FormJournal.h"
#include "forms/FormScribe.h"
#include "forms/FormTree.h"

// Makes one edit in a tree, through the journal, so that only the bytes it is about change and the whole still reads
// as the same tokens.
class FormEditor {
public:
    FormEditor(FormTree& tree, FormJournal& journal, const QString& fileName);

    FormProperty& addProperty(FormNode& node, const QString& name, const FormValue& value);
    void replaceValue(FormProperty& property, const FormValue& value);
    void removeProperty(FormProperty& property);

    FormNode& addChild(FormNode& parent, const FormNames& names, int position);
    FormNode& addItem(FormProperty& collection, std::optional<int> index, int position);
    void take(FormNode& node);
    void move(FormNode& node, FormNode& parent, int position);
    void reorder(FormNode& node, int position);
    void changeHeader(FormNode& node, const FormNames& names);

private:
    using Nodes = std::vector<FormNode*>;

    FormNode& makeNode(const QByteArray& indent, const FormNames& names);
    void addItems(FormProperty& collection, const QList<FormItem>& items);
    static Nodes siblings(const FormNode& node);
    void setChildren(FormNode& parent, const Nodes& nodes, size_t changed);
    void setItems(FormProperty& collection, const Nodes& nodes);
    static void insert(Nodes& nodes, FormNode& node, int position);

    // Pieces that came to lie side by side are kept apart: between property i - 1 and i, between child i - 1 and i,
    // between item i - 1 and i. One past the last is what follows them.
    void mendProperty(FormNode& node, size_t i);
    void mendChild(FormNode& node, size_t i);
    void mendItem(FormProperty& collection, size_t i);
    static QByteArrayView beginOf(const FormNode& node, size_t child);
    static QByteArrayView endOf(const FormProperty& property);
    void addGap(FormNode& node, const QByteArray& gap); // at the end of its properties or its header
    void addGap(FormProperty& property, const QByteArray& gap);

    FormTree& m_tree;
    FormJournal& m_journal;
    std::unique_ptr<FormScribe> m_scribe;
};
