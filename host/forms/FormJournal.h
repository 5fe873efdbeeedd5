#pragma once

#include "forms/FormTree.h"

#include <variant>
#include <vector>

// Changes a tree and remembers how it was. A step holds the changes of one edit; going back over a step and forward
// again brings the same bytes and the same objects.
class FormJournal {
public:
    explicit FormJournal(FormTree& tree)
        : FTree(tree)
    {
    }

    // Everything changed while it lives is one step. Inside another one it adds to that one's step.
    class Edit {
    public:
        explicit Edit(FormJournal& journal);
        ~Edit();
        Q_DISABLE_COPY_MOVE(Edit)
    private:
        FormJournal& FJournal;
    };

    void SetHeader(FormNode& node, FormNode::Kind kind, const FormNode::Header& header);
    void SetFrame(FormNode& node, QByteArrayView middle, QByteArrayView footer);
    void SetProperties(FormNode& node, std::span<FormProperty* const> properties);
    void SetChildren(FormNode& node, std::span<FormNode* const> children);
    void SetPieces(FormProperty& property, const FormProperty::Pieces& pieces);

    int Position() const { return static_cast<int>(FPosition); }
    int LastPosition() const { return static_cast<int>(FSteps.size()); }
    void UndoTo(int position);
    void RedoTo(int position);

private:
    struct Header {
        FormNode* Node;
        FormNode::Kind Kind;
        FormNode::Header Header;
    };
    struct Frame {
        FormNode* Node;
        QByteArrayView Middle;
        QByteArrayView Footer;
    };
    struct Properties {
        FormNode* Node;
        std::span<FormProperty* const> Properties;
    };
    struct Children {
        FormNode* Node;
        std::span<FormNode* const> Children;
    };
    struct Pieces {
        FormProperty* Property;
        FormProperty::Pieces Pieces;
    };
    using Change = std::variant<Header, Frame, Properties, Children, Pieces>; // holds the state that is not in the tree
    using Step = std::vector<Change>;

    void Apply(Change change);
    void Exchange(Change& change);
    void Exchange(Header& change);
    void Exchange(Frame& change);
    void Exchange(Properties& change);
    void Exchange(Children& change);
    void Exchange(Pieces& change);

    FormTree& FTree;
    std::vector<Step> FSteps;
    size_t FPosition = 0;
    int FDepth = 0;
};
