#pragma once

#include "forms/FormTree.h"

#include <variant>
#include <vector>

// Changes a tree and remembers how it was. A step holds the changes of one edit; going back over a step and forward
// again brings the same bytes and the same objects.
class FormJournal {
public:
    explicit FormJournal(FormTree& tree)
        : m_tree(tree)
    {
    }

    // Everything changed while it lives is one step. Inside another one it adds to that one's step.
    class Edit {
    public:
        explicit Edit(FormJournal& journal);
        ~Edit();
        Q_DISABLE_COPY_MOVE(Edit)
    private:
        FormJournal& m_journal;
    };

    void setHeader(FormNode& node, FormNode::Kind kind, const FormNode::Header& header);
    void setFrame(FormNode& node, QByteArrayView middle, QByteArrayView footer);
    void setProperties(FormNode& node, std::span<FormProperty* const> properties);
    void setChildren(FormNode& node, std::span<FormNode* const> children);
    void setPieces(FormProperty& property, const FormProperty::Pieces& pieces);

    int position() const { return static_cast<int>(m_position); }
    int lastPosition() const { return static_cast<int>(m_steps.size()); }
    void undoTo(int position);
    void redoTo(int position);

private:
    struct Header {
        FormNode* node;
        FormNode::Kind kind;
        FormNode::Header header;
    };
    struct Frame {
        FormNode* node;
        QByteArrayView middle;
        QByteArrayView footer;
    };
    struct Properties {
        FormNode* node;
        std::span<FormProperty* const> properties;
    };
    struct Children {
        FormNode* node;
        std::span<FormNode* const> children;
    };
    struct Pieces {
        FormProperty* property;
        FormProperty::Pieces pieces;
    };
    using Change = std::variant<Header, Frame, Properties, Children, Pieces>; // holds the state that is not in the tree
    using Step = std::vector<Change>;

    void apply(Change change);
    void exchange(Change& change);
    void exchange(Header& change);
    void exchange(Frame& change);
    void exchange(Properties& change);
    void exchange(Children& change);
    void exchange(Pieces& change);

    FormTree& m_tree;
    std::vector<Step> m_steps;
    size_t m_position = 0;
    int m_depth = 0;
};
