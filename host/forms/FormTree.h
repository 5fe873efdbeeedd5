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

    QByteArrayView source() const { return m_source; }

    FormFormat format = FormFormat::Text;
    FormEncoding encoding;
    QByteArrayView prefix; // before the root: a mark, the resource header, the signature
    QByteArrayView suffix; // behind the root
    qsizetype wrapped = 0; // size of the resource header around a binary form, 0 without one
    bool doubles = true; // value type 21 of a binary form: a double, else a string
    bool rawStrings = false; // strings hold characters above 127 as they are
    FormNode* root = nullptr;

    FormNode* makeNode(FormNode::Kind kind);
    FormProperty* makeProperty(FormNode* owner);
    QByteArrayView keep(QByteArrayView bytes); // a copy that lives as long as the tree
    std::span<FormNode* const> keep(std::span<FormNode* const> nodes);
    std::span<FormProperty* const> keep(std::span<FormProperty* const> properties);

    void setKind(FormNode& node, FormNode::Kind kind) { node.m_kind = kind; }
    void setHeader(FormNode& node, const FormNode::Header& header) { node.m_header = header; }
    void setFrame(FormNode& node, QByteArrayView middle, QByteArrayView footer);
    void setProperties(FormNode& node, std::span<FormProperty* const> properties) { node.m_properties = properties; }
    void setChildren(FormNode& node, std::span<FormNode* const> children); // adopts them, lets the old ones go
    void setPieces(FormProperty& property, const FormProperty::Pieces& pieces); // adopts the items
    FormDocument* document = nullptr; // that owns this tree; nil while a reader builds it

private:
    template <typename T>
    T* make();

    QByteArray m_source;
    std::pmr::monotonic_buffer_resource m_memory;
};
