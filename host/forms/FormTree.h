#pragma once

#include "forms/FormEncoding.h"
#include "forms/FormFormat.h"
#include "forms/FormNode.h"

#include <QByteArray>

#include <memory_resource>
#include <span>

// The nodes and properties of one document and the memory they live in. Readers build it, FormDocument owns it and
// changes it. Nodes are views: into the bytes of the file, which are kept, or into bytes added since. Nothing is freed
// before the tree itself, so that an undo finds everything at its old address, and so that freeing a tree, however
// deep, is one step.
class FormTree {
public:
    explicit FormTree(QByteArray source);
    FormTree(FormTree&&) = delete;

    QByteArrayView Source() const { return FSource; }

    FormFormat Format = FormFormat::Text;
    FormEncoding Encoding;
    QByteArrayView Prefix; // before the root: a mark, the resource header, the signature
    QByteArrayView Suffix; // behind the root
    qsizetype Wrapped = 0; // size of the resource header around a binary form, 0 without one
    bool Doubles = true; // value type 21 of a binary form: a double, else a string
    bool RawStrings = false; // strings hold characters above 127 as they are
    FormNode* Root = nullptr;

    FormNode* MakeNode(FormNode::Kind kind);
    FormProperty* MakeProperty(FormNode* owner);
    QByteArrayView Keep(QByteArrayView bytes); // a copy that lives as long as the tree
    std::span<FormNode* const> Keep(std::span<FormNode* const> nodes);
    std::span<FormProperty* const> Keep(std::span<FormProperty* const> properties);

    void SetKind(FormNode& node, FormNode::Kind kind) { node.FKind = kind; }
    void SetHeader(FormNode& node, const FormNode::Header& header) { node.FHeader = header; }
    void SetFrame(FormNode& node, QByteArrayView middle, QByteArrayView footer);
    void SetProperties(FormNode& node, std::span<FormProperty* const> properties) { node.FProperties = properties; }
    void SetChildren(FormNode& node, std::span<FormNode* const> children); // adopts them, lets the old ones go
    void SetPieces(FormProperty& property, const FormProperty::Pieces& pieces); // adopts the items
    FormDocument* Document = nullptr; // that owns this tree; nil while a reader builds it

private:
    template <typename T>
    T* Make();

    QByteArray FSource;
    std::pmr::monotonic_buffer_resource FMemory;
};
