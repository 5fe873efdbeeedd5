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
    static constexpr int MaximumDepth = 1000;

    // `start` is where the text begins in the tree's bytes, behind a mark.
    FormTextReader(FormTree& tree, qsizetype start);

    // Fills the tree; on failure returns what stood in the way (without the file's name).
    std::optional<FormError> Read();

private:
    struct Failure { };

    FormNode* Object();
    void header(FormNode& node);
    std::optional<int> Index();
    void Body(FormNode& node, bool isObject);
    void Children(FormNode& node);
    FormProperty* Property(FormNode& owner);
    QByteArrayView DottedName(const char* what, bool isClass = false);
    void Value(FormProperty::Pieces& pieces, FormProperty* property);
    void SkipValue();
    void SkipString();
    void SkipSet();
    void SkipList();
    void SkipCollection();
    void Collection(FormProperty::Pieces& pieces, FormProperty* property);
    FormNode* Item();

    void Advance();
    bool IsWord(const char* word) const;
    bool EndsBody(bool isObject) const;
    void ExpectMark(char mark, const char* advice);
    [[noreturn]] void Fail(const QString& message);
    [[noreturn]] void FailExpected(const QString& what);
    QString Found() const;
    qsizetype EndOfLine(qsizetype at) const;
    QByteArrayView UpTo(qsizetype end); // the bytes from the last piece to here
    void Enter();
    void Leave() { --FDepth; }

    FormTree& FTree;
    FormLexer FLexer;
    FormToken FToken;
    qsizetype FTokenEnd = 0; // of the token before FToken
    qsizetype FPieceStart;
    int FDepth = 0;
    std::vector<FormProperty*> FProperties; // of the bodies being read, innermost last
    std::vector<FormNode*> FNodes; // likewise children and items
    std::optional<FormError> FError;
};
