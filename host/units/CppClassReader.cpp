#include "units/CppSyntax.h"

// Reads the members of one class.
class CppClassReader {
public:
    CppClassReader(const CppSyntax& syntax, CppClass& found)
        : S(syntax)
        , FClass(found)
    {
    }

    void Run()
    {
        int at = S.Next(FClass.Open);
        while (at >= 0 && !S.Is(at, "}"))
            at = ReadItem(at);
        FClass.End = at;
    }

private:
    int ReadItem(int at)
    {
        const int after = S.Next(at);
        if (S.Is(after, ":") && S.Tokens()[at].Type == SourceToken::Word)
            return ReadSection(at, after);
        return ReadMember(at);
    }

    int ReadSection(int word, int colon)
    {
        FKept = S.Is(word, "__published") && FClass.Published < 0;
        if (FKept)
            FClass.Published = colon;
        return S.Next(colon);
    }

    // A member up to its semicolon or to the end of its body.
    int ReadMember(int first)
    {
        QList<int> tokens;
        int opened = -1; // the first bracket of the parameters
        for (int at = first; at >= 0; at = S.Next(at)) {
            if (S.Is(at, ";")) {
                Take(tokens, at, opened);
                return S.Next(at);
            }
            if (S.Is(at, "}"))
                return at;
            if (S.Is(at, "(") || S.Is(at, "[") || S.Is(at, "{")) {
                const bool body = S.Is(at, "{");
                opened = opened < 0 ? at : opened;
                const int end = S.SkipPair(at);
                if (end < 0)
                    return -1;
                // The body of a function ends its member; what a nested type's body is followed by does not.
                if (body && S.Is(opened, "(")) {
                    Take(tokens, -1, opened);
                    return S.Is(S.Next(end), ";") ? S.Next(S.Next(end)) : S.Next(end);
                }
                at = end;
                continue;
            }
            tokens << at;
        }
        return -1;
    }

    // A member with parameters is a method; one that ends with a name after a type is a field.
    void Take(const QList<int>& tokens, int semicolon, int opened)
    {
        if (opened >= 0 && S.Is(opened, "(")) {
            if (const int name = S.Previous(opened); name >= 0 && S.Tokens()[name].Type == SourceToken::Word)
                FClass.Methods << S.TextOf(name);
            return;
        }
        if (opened >= 0 || tokens.size() < 2 || semicolon < 0)
            return;
        TakeFields(tokens, semicolon);
    }

    void TakeFields(const QList<int>& tokens, int semicolon)
    {
        QList<CppField> fields;
        QString type;
        int angles = 0;
        for (qsizetype i = 0; i < tokens.size(); ++i) {
            const int at = tokens[i];
            angles += S.Is(at, "<") ? 1 : S.Is(at, ">") ? -1 : 0;
            const bool ends = angles == 0 && (i + 1 == tokens.size() || S.Is(tokens[i + 1], ","));
            const bool word = S.Tokens()[at].Type == SourceToken::Word;
            if (i > 0 && ends && word)
                fields.append({ { S.TextOf(at), {} }, at, tokens.first(), semicolon, 1 });
            else if (fields.isEmpty() && !S.Is(at, "*") && !S.Is(at, "&"))
                type += (word && !type.isEmpty() && type.back().isLetterOrNumber() ? QStringLiteral(" ") : QString())
                    + S.TextOf(at);
        }
        for (auto& field : fields) {
            field.Declaration.Type = type;
            field.Sharing = int(fields.size());
        }
        (FKept ? FClass.Fields : FClass.OtherFields) += fields;
    }

    const CppSyntax& S;
    CppClass& FClass;
    bool FKept = false; // the section at hand is the designer's
};

const CppField* CppClass::FieldNamed(const QString& name) const
{
    for (const auto* fields : { &Fields, &OtherFields }) {
        for (const auto& field : *fields) {
            if (field.Declaration.Name == name)
                return &field;
        }
    }
    return nullptr;
}

// `index` is the keyword. Macros may stand between it and the name, with or without arguments.
std::optional<CppClass> CppSyntax::ClassAt(int index, const QString& name) const
{
    CppClass found;
    int at = Next(index);
    for (; at >= 0; at = Next(at)) {
        if (Is(at, "(") || Is(at, "[")) {
            at = SkipPair(at);
            if (at < 0)
                return {};
        } else if (FTokens[at].Type != SourceToken::Word) {
            break;
        } else if (!Is(at, "final")) {
            found.NameToken = at;
        }
    }
    if (found.NameToken < 0 || TextOf(found.NameToken) != name || (!Is(at, ":") && !Is(at, "{")))
        return {};
    found.Name = name;
    for (at = Is(at, ":") ? Next(at) : at; at >= 0 && !Is(at, "{") && !Is(at, ";"); at = Next(at)) {
        const bool access = Is(at, "public") || Is(at, "protected") || Is(at, "private") || Is(at, "virtual");
        if (Is(at, ","))
            break;
        if (!access)
            found.Ancestor += TextOf(at);
    }
    while (at >= 0 && !Is(at, "{") && !Is(at, ";"))
        at = Next(at);
    if (!Is(at, "{"))
        return {};
    found.Open = at;
    const int first = Next(at);
    const bool labelled = Is(Next(first), ":") || Is(first, "}");
    found.StartAccess = labelled ? QString()
        : Is(index, "struct")    ? QStringLiteral("public:")
                                 : QStringLiteral("private:");
    CppClassReader(*this, found).Run();
    return found;
}
