#pragma once

#include "units/SourceToken.h"
#include "units/SourceUnit.h"

#include <QString>

// What a C++ source or header consists of, as far as the designer needs to know it. All places are indexes into the
// tokens, -1 where there is none.

struct CppInclude {
    QString Path; // as written
    bool Quoted = false;
    int Token = -1;
};

struct CppField {
    FieldDeclaration Declaration;
    int Name = -1;
    int First = -1;
    int Last = -1; // the semicolon
    int Sharing = 1; // how many fields the declaration names
};

struct CppClass {
    QString Name;
    QString Ancestor;
    int NameToken = -1;
    int Open = -1; // the brace
    QString StartAccess; // the label that the members at the start would have; empty where they have one
    int End = -1; // the brace that closes the class
    int Published = -1; // the colon of the first __published section
    QList<CppField> Fields; // of that section
    QList<CppField> OtherFields;
    QStringList Methods;

    const CppField* FieldNamed(const QString& name) const;
};

class CppSyntax {
public:
    CppSyntax() = default;
    explicit CppSyntax(const QString& text);

    const SourceTokens& Tokens() const { return FTokens; }
    const QList<CppInclude>& Includes() const { return FIncludes; }

    // The class's definition; declarations of its name alone are passed over.
    std::optional<CppClass> FindClass(const QString& name) const;

    int Next(int index) const;
    int Previous(int index) const;
    bool Is(int index, const char* text) const;
    QString TextOf(int index) const;

private:
    friend class CppClassReader;

    std::optional<CppClass> ClassAt(int index, const QString& name) const;
    int SkipPair(int index) const;

    QString FText;
    SourceTokens FTokens;
    QList<CppInclude> FIncludes;
};
