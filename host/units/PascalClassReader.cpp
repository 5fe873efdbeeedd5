#include "units/PascalSyntax.h"

namespace {

// What the items of a class are taken for, until a word says otherwise.
enum class Section { Fields, ClassFields, Types };

}

// Reads the members of one class.
class PascalClassReader {
public:
    PascalClassReader(const PascalSyntax& syntax, PascalClass& found)
        : S(syntax)
        , FClass(found)
    {
    }

    void Run()
    {
        int at = S.Next(FClass.SectionStart);
        while (at >= 0 && !S.Is(at, "end"))
            at = ReadItem(at);
        FClass.End = at;
    }

private:
    // Reads the item at `at` and gives the beginning of the next, -1 when the text ends within it.
    int ReadItem(int at)
    {
        if (S.Is(at, "[") || S.Is(at, "(")) {
            FAttributes = FAttributes < 0 ? at : FAttributes;
            const int end = S.SkipPair(at);
            return end < 0 ? -1 : S.Next(end);
        }
        const int after = S.Next(at);
        if (S.Is(after, ":") || S.Is(after, ","))
            return FSection == Section::Types ? Behind(S.SkipDeclaration(at)) : ReadFields(at);
        FAttributes = -1;
        if (IsVisibility(at))
            return ReadVisibility(at);
        if (IsAnyOf(at, { "type", "const", "resourcestring" }) || (S.Is(at, "class") && S.Is(after, "const")))
            FSection = Section::Types;
        else if (S.Is(at, "class") && IsAnyOf(after, { "var", "threadvar" }))
            FSection = Section::ClassFields;
        else if (IsAnyOf(at, { "var", "threadvar" }) && !S.Is(S.Previous(at), "class"))
            FSection = Section::Fields;
        if (IsAnyOf(at, { "type", "const", "resourcestring", "var", "threadvar", "class" }))
            return after;
        if (IsAnyOf(at, { "procedure", "function", "constructor", "destructor", "operator" })) {
            FSection = Section::Fields;
            FClass.Methods << S.Word(after);
        }
        return Behind(S.SkipDeclaration(at));
    }

    bool IsAnyOf(int at, std::initializer_list<const char*> words) const
    {
        return std::any_of(words.begin(), words.end(), [&](const char* word) { return S.Is(at, word); });
    }

    bool IsVisibility(int at) const
    {
        return IsAnyOf(at, { "private", "protected", "public", "published", "automated", "strict" });
    }

    int Behind(int at) const { return at < 0 ? -1 : S.Next(at); }

    // The first published section is the designer's where nothing stands before the first visibility.
    int ReadVisibility(int at)
    {
        FSection = Section::Fields;
        const bool published = S.Is(at, "published");
        FKept = published && FClass.Fields.isEmpty() && !FPublishedSeen;
        if (FKept)
            FPublished = at;
        FPublishedSeen = FPublishedSeen || published;
        return S.Next(at);
    }

    // Takes the names of one declaration in, which share its type.
    int ReadFields(int at)
    {
        QList<PascalField> fields;
        const int first = FAttributes >= 0 ? FAttributes : at;
        FAttributes = -1;
        int name = at;
        while (name >= 0 && !S.Is(name, ":")) {
            if (S.Tokens()[name].Type == SourceToken::Word)
                fields.append({ { S.Word(name), {} }, name, first, -1, 1 });
            name = S.Next(name);
        }
        const int last = name < 0 ? -1 : S.SkipDeclaration(S.Next(name));
        if (last < 0)
            return -1;
        const int typeEnd = S.Is(last, ";") ? S.Previous(last) : last;
        for (auto& field : fields) {
            field.Declaration.Type = S.TextOf(S.Next(name), typeEnd);
            field.Last = last;
            field.Sharing = int(fields.size());
        }
        Keep(fields);
        return S.Next(last);
    }

    void Keep(const QList<PascalField>& fields)
    {
        if (!FKept || FSection == Section::ClassFields) {
            FClass.OtherFields += fields;
            return;
        }
        if (FPublished >= 0)
            FClass.SectionStart = FPublished;
        FClass.Fields += fields;
    }

    const PascalSyntax& S;
    PascalClass& FClass;
    Section FSection = Section::Fields;
    bool FKept = true; // the section at hand is the designer's
    bool FPublishedSeen = false;
    int FPublished = -1;
    int FAttributes = -1;
};

const PascalField* PascalClass::FieldNamed(const QString& name) const
{
    for (const auto* fields : { &Fields, &OtherFields }) {
        for (const auto& field : *fields) {
            if (field.Declaration.Name.compare(name, Qt::CaseInsensitive) == 0)
                return &field;
        }
    }
    return nullptr;
}

std::optional<PascalClass> PascalSyntax::FindClass(const QString& name) const
{
    const int start = qMax(FInterface, -1);
    // First over whole declarations, so that a class within another one is not taken for it; then anywhere.
    for (const bool whole : { true, false }) {
        for (int at = Next(start); at >= 0; at = Next(at)) {
            if (at == FImplementation && whole)
                break;
            if (!Is(Next(at), "="))
                continue;
            if (auto found = ClassAt(at, name))
                return found;
            const int end = whole ? SkipDeclaration(at) : at;
            if (end < 0)
                break;
            at = end;
        }
    }
    return {};
}

std::optional<PascalClass> PascalSyntax::ClassAt(int index, const QString& name) const
{
    if (Word(index).compare(name, Qt::CaseInsensitive) != 0)
        return {};
    int at = Next(Next(index));
    if (Is(at, "packed"))
        at = Next(at);
    if (!Is(at, "class") || Is(Next(at), ";") || Is(Next(at), "of"))
        return {};
    PascalClass found;
    found.Name = Word(index);
    found.NameToken = index;
    found.SectionStart = at;
    at = Next(at);
    for (; Is(at, "abstract") || Is(at, "sealed"); at = Next(at))
        found.SectionStart = at;
    if (Is(at, "helper") || at < 0)
        return {};
    if (Is(at, "(")) {
        const int close = SkipPair(at);
        if (close < 0)
            return {};
        for (int next = Next(at); next != close && !Is(next, ","); next = Next(next))
            found.Ancestor += FTokens[next].In(FText);
        found.SectionStart = close;
        at = Next(close);
    }
    if (Is(at, ";")) {
        found.HasBody = false;
        found.End = at;
        return found;
    }
    PascalClassReader(*this, found).Run();
    return found;
}
