#pragma once

#include "forms/FormError.h"
#include "forms/FormLexer.h"
#include "forms/FormTree.h"

#include <optional>
#include <vector>

// Builds the tree of a form in text: checks the grammar of the whole file and notes where everything stands. Values
// are decoded when somebody asks for them.
class FormTextReader {
public:
    // The deepest nesting of objects, items and lists that is read. Beyond it, code that walks a form could run out
    // of stack; no form that a person made comes near.
    static constexpr int maximumDepth = 1000;

    // `start` is where the text begins in the tree's bytes, behind a mark.
    FormTextReader(FormTree& tree, qsizetype start);

    // Fills the tree; on failure returns what stood in the way (without the file's name).
    std::optional<FormError> read();

private:
    struct Failure { };

    FormNode* object();
    void header(FormNode& node);
    std::optional<int> index();
    void body(FormNode& node, bool isObject);
    void children(FormNode& node);
    FormProperty* property(FormNode& owner);
    QByteArrayView dottedName(const char* what, bool isClass = false);
    void value(FormProperty::Pieces& pieces, FormProperty* property);
    void skipValue();
    void skipString();
    void skipSet();
    void skipList();
    void skipCollection();
    void collection(FormProperty::Pieces& pieces, FormProperty* property);
    FormNode* item();

    void advance();
    bool isWord(const char* word) const;
    bool endsBody(bool isObject) const;
    void expectMark(char mark, const char* advice);
    [[noreturn]] void fail(const QString& message);
    [[noreturn]] void failExpected(const QString& what);
    QString found() const;
    qsizetype endOfLine(qsizetype at) const;
    QByteArrayView upTo(qsizetype end); // the bytes from the last piece to here
    void enter();
    void leave() { --m_depth; }

    FormTree& m_tree;
    FormLexer m_lexer;
    FormToken m_token;
    qsizetype m_tokenEnd = 0; // of the token before m_token
    qsizetype m_pieceStart;
    int m_depth = 0;
    std::vector<FormProperty*> m_properties; // of the bodies being read, innermost last
    std::vector<FormNode*> m_nodes; // likewise children and items
    std::optional<FormError> m_error;
};
