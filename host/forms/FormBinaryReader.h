#pragma once

#include "forms/FormBinaryCursor.h"
#include "forms/FormError.h"
#include "forms/FormTree.h"

#include <optional>
#include <vector>

// Builds the tree of a binary form: checks that every length and every type in it holds, and notes where everything
// stands. Values are decoded when somebody asks for them.
class FormBinaryReader {
public:
    static constexpr int maximumDepth = 1000; // see FormTextReader

    // `start` and `end` enclose the form in the tree's bytes, its signature included. `doubles` says what the value
    // type 21 is taken for.
    FormBinaryReader(FormTree& tree, qsizetype start, qsizetype end, bool doubles);

    std::optional<FormError> read();
    bool sawAmbiguousType() const { return m_ambiguous; } // a value of type 21

private:
    struct Failure { };

    FormNode* object();
    void header(FormNode& node);
    int place();
    void body(FormNode& node);
    void children(FormNode& node);
    FormProperty* property(FormNode& owner);
    void skipValue();
    void skipAmbiguous();
    void skipFixed(int size);
    void skipList();
    void skipSet();
    void skipCollection();
    void collection(FormProperty::Pieces& pieces, FormProperty* property);
    FormNode* item();

    QByteArrayView name();
    void note(QByteArrayView text);
    QByteArrayView upTo(qsizetype end);
    void check(const char* what); // that the last read did not run past the end
    [[noreturn]] void fail(const QString& message, qsizetype at);
    void enter();
    void leave() { --m_depth; }

    FormTree& m_tree;
    FormBinaryCursor m_cursor;
    qsizetype m_end;
    qsizetype m_pieceStart;
    qsizetype m_valueStart = 0;
    bool m_doubles;
    bool m_ambiguous = false;
    bool m_nonAscii = false; // in any narrow string
    bool m_utf8 = true; // every one of them
    int m_depth = 0;
    std::vector<FormProperty*> m_properties;
    std::vector<FormNode*> m_nodes;
    std::optional<FormError> m_error;
};
