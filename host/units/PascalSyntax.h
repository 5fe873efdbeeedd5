#pragma once

#include "units/SourceToken.h"
#include "units/SourceUnit.h"

#include <QString>

// What a unit's text consists of, as far as the designer needs to know it. All places are indexes into the tokens, -1
// where there is none. Only code that the conditional directives leave in is looked at.

struct PascalUsesEntry {
    QString Name;
    int First = -1;
    int Last = -1; // with its `in` and file name
    QString FileName; // what stands behind `in`
};

struct PascalUses {
    int Keyword = -1;
    int Semicolon = -1;
    QList<PascalUsesEntry> Entries;

    bool Exists() const { return Keyword >= 0; }
    int IndexOf(const UnitReference& unit) const;
    QStringList Names() const;
};

struct PascalField {
    FieldDeclaration Declaration;
    int Name = -1;
    int First = -1; // of the whole declaration, which may name several fields
    int Last = -1; // its last token, the semicolon as a rule
    int Sharing = 1; // how many fields the declaration names
};

struct PascalClass {
    QString Name;
    QString Ancestor;
    int NameToken = -1;
    int SectionStart = -1; // the fields that the designer keeps begin behind this token
    int End = -1; // the class's `end`, or the semicolon of a class without a body
    bool HasBody = true;
    QList<PascalField> Fields; // of the section that the designer keeps
    QList<PascalField> OtherFields;
    QStringList Methods;

    // Of either kind; nil where the class has no field of that name.
    const PascalField* FieldNamed(const QString& name) const;
};

class PascalSyntax {
public:
    PascalSyntax() = default;
    PascalSyntax(const QString& text, PascalDialect dialect);

    const SourceTokens& Tokens() const { return FTokens; }
    const QString& UnitName() const { return FUnitName; }

    // "unit", "program", "library" or "package"; empty where the text begins with none of them.
    const QString& Kind() const { return FKind; }

    // The keyword behind which the first uses clause stands or would stand, and that of the second.
    int Interface() const { return FInterface; }
    int Implementation() const { return FImplementation; }

    // A program's uses and a package's contains clause count as the interface's.
    const PascalUses& InterfaceUses() const { return FInterfaceUses; }
    const PascalUses& ImplementationUses() const { return FImplementationUses; }

    // The class's full declaration; forward declarations, class references, helpers and generic classes of the same
    // name are passed over.
    std::optional<PascalClass> FindClass(const QString& name) const;

    // The nearest token of code behind or before, -1 for none.
    int Next(int index) const;
    int Previous(int index) const;

    bool Is(int index, const char* text) const;

    // A name without the & that lets it be a keyword.
    QString Word(int index) const;
    QString TextOf(int first, int last) const;

private:
    friend class PascalClassReader;

    void ReadHead();
    PascalUses ReadUses(int keyword) const;
    bool ReadUsesEntry(int& index, PascalUses& uses) const;
    std::optional<PascalClass> ClassAt(int index, const QString& name) const;
    bool IsClassBody(int index) const;
    int SkipPair(int index) const;
    int SkipDeclaration(int index) const;

    QString FText;
    SourceTokens FTokens;
    QString FUnitName;
    QString FKind;
    int FInterface = -1;
    int FImplementation = -1;
    PascalUses FInterfaceUses;
    PascalUses FImplementationUses;
};
