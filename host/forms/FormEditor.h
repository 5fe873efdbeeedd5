#pragma once

#include "forms/FormJournal.h"
#include "forms/FormScribe.h"
#include "forms/FormTree.h"

// Makes one edit in a tree, through the journal, so that only the bytes it is about change and the whole still reads
// as the same tokens.
class FormEditor {
public:
    FormEditor(FormTree& tree, FormJournal& journal, const QString& fileName);

    FormProperty& AddProperty(FormNode& node, const QString& name, const FormValue& value);
    void ReplaceValue(FormProperty& property, const FormValue& value);
    void RemoveProperty(FormProperty& property);

    FormNode& AddChild(FormNode& parent, const FormNames& names, int position);
    FormNode& AddItem(FormProperty& collection, std::optional<int> index, int position);
    void Take(FormNode& node);
    void Move(FormNode& node, FormNode& parent, int position);
    void Reorder(FormNode& node, int position);
    void ChangeHeader(FormNode& node, const FormNames& names);

private:
    using Nodes = std::vector<FormNode*>;

    FormNode& MakeNode(const QByteArray& indent, const FormNames& names);
    void AddItems(FormProperty& collection, const QList<FormItem>& items);
    static Nodes Siblings(const FormNode& node);
    void SetChildren(FormNode& parent, const Nodes& nodes, size_t changed);
    void SetItems(FormProperty& collection, const Nodes& nodes);
    static void Insert(Nodes& nodes, FormNode& node, int position);

    // Pieces that came to lie side by side are kept apart: between property i - 1 and i, between child i - 1 and i,
    // between item i - 1 and i. One past the last is what follows them.
    void MendProperty(FormNode& node, size_t i);
    void MendChild(FormNode& node, size_t i);
    void MendItem(FormProperty& collection, size_t i);
    static QByteArrayView BeginOf(const FormNode& node, size_t child);
    static QByteArrayView EndOf(const FormProperty& property);
    void AddGap(FormNode& node, const QByteArray& gap); // at the end of its properties or its header
    void AddGap(FormProperty& property, const QByteArray& gap);

    FormTree& FTree;
    FormJournal& FJournal;
    std::unique_ptr<FormScribe> FScribe;
};
