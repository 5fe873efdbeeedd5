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
    static constexpr int MaximumDepth = 1000; // see FormTextReader

    // `start` and `end` enclose the form in the tree's bytes, its signature included. `doubles` says what the value
    // type 21 is taken for.
    FormBinaryReader(FormTree& tree, qsizetype start, qsizetype end, bool doubles);

    std::optional<FormError> Read();
    bool SawAmbiguousType() const { return FAmbiguous; } // a value of type 21

private:
    struct Failure { };

    FormNode* Object();
    void header(FormNode& node);
    int Place();
    void Body(FormNode& node);
    void Children(FormNode& node);
    FormProperty* Property(FormNode& owner);
    void SkipValue();
    void SkipAmbiguous();
    void SkipFixed(int size);
    void SkipList();
    void SkipSet();
    void SkipCollection();
    void Collection(FormProperty::Pieces& pieces, FormProperty* property);
    FormNode* Item();

    QByteArrayView Name();
    void Note(QByteArrayView text);
    QByteArrayView UpTo(qsizetype end);
    void Check(const char* what); // that the last read did not run past the end
    [[noreturn]] void Fail(const QString& message, qsizetype at);
    void Enter();
    void Leave() { --FDepth; }

    FormTree& FTree;
    FormBinaryCursor FCursor;
    qsizetype FEnd;
    qsizetype FPieceStart;
    qsizetype FValueStart = 0;
    bool FDoubles;
    bool FAmbiguous = false;
    bool FNonAscii = false; // in any narrow string
    bool FUtf8 = true; // every one of them
    int FDepth = 0;
    std::vector<FormProperty*> FProperties;
    std::vector<FormNode*> FNodes;
    std::optional<FormError> FError;
};
