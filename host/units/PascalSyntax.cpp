#include "units/PascalSyntax.h"

#include "units/UsedUnits.h"

namespace {

bool isOneOf(const QString& word, std::initializer_list<const char*> words)
{
    return std::any_of(words.begin(), words.end(),
        [&word](const char* one) { return word.compare(QLatin1String(one), Qt::CaseInsensitive) == 0; });
}

}

int PascalUses::IndexOf(const UnitReference& unit) const
{
    for (int i = 0; i < Entries.size(); ++i) {
        if (NamesUnit(Entries[i].Name, unit))
            return i;
    }
    return -1;
}

QStringList PascalUses::Names() const
{
    QStringList names;
    for (const auto& entry : Entries)
        names << entry.Name;
    return names;
}

PascalSyntax::PascalSyntax(const QString& text, PascalDialect dialect)
    : FText(text)
    , FTokens(TokenizePascal(FText, dialect))
{
    ReadHead();
}

int PascalSyntax::Next(int index) const
{
    do
        ++index;
    while (index < FTokens.size() && !FTokens[index].IsCode());
    return index < FTokens.size() ? index : -1;
}

int PascalSyntax::Previous(int index) const
{
    do
        --index;
    while (index >= 0 && !FTokens[index].IsCode());
    return index;
}

bool PascalSyntax::Is(int index, const char* text) const
{
    return index >= 0 && FTokens[index].In(FText).compare(QLatin1String(text), Qt::CaseInsensitive) == 0;
}

QString PascalSyntax::Word(int index) const
{
    if (index < 0 || FTokens[index].Type != SourceToken::Word)
        return {};
    const auto text = FTokens[index].In(FText).toString();
    return text.startsWith(u'&') ? text.sliced(1) : text;
}

QString PascalSyntax::TextOf(int first, int last) const
{
    if (first < 0 || last < first)
        return {};
    return FText.sliced(FTokens[first].Offset, FTokens[last].End() - FTokens[first].Offset);
}

void PascalSyntax::ReadHead()
{
    int at = Next(-1);
    if (isOneOf(Word(at), { "unit", "program", "library", "package" })) {
        FKind = Word(at).toLower();
        for (at = Next(at); at >= 0 && !Is(at, ";"); at = Next(at)) {
            if (Is(at, "("))
                at = SkipPair(at);
            else if (FTokens[at].Type == SourceToken::Word
                && !isOneOf(Word(at), { "platform", "deprecated", "experimental", "library" }))
                FUnitName += Word(at);
            else if (Is(at, "."))
                FUnitName += u'.';
            if (at < 0)
                break;
        }
        FInterface = FKind == u"unit" ? -1 : at;
    } else {
        at = -1;
    }
    for (at = Next(at); at >= 0; at = Next(at)) {
        const bool unit = FInterface < 0 || FKind == u"unit";
        if (FInterface < 0 && Is(at, "interface"))
            FInterface = at;
        else if (FImplementation < 0 && FInterface >= 0 && unit && Is(at, "implementation"))
            FImplementation = at;
        else if (Is(at, "uses") || (FKind == u"package" && Is(at, "contains")))
            (FImplementation < 0 ? FInterfaceUses : FImplementationUses) = ReadUses(at);
        else if (isOneOf(Word(at), { "begin", "asm" }) && !unit)
            break;
        // Behind the second clause's place nothing else is of interest.
        if (FImplementation >= 0 && at != FImplementation)
            break;
    }
}

PascalUses PascalSyntax::ReadUses(int keyword) const
{
    PascalUses uses;
    uses.Keyword = keyword;
    int at = Next(keyword);
    while (at >= 0 && ReadUsesEntry(at, uses)) {
        if (Is(at, ";")) {
            uses.Semicolon = at;
            break;
        }
        if (!Is(at, ","))
            break;
        at = Next(at);
    }
    if (uses.Entries.isEmpty() && Is(at, ";"))
        uses.Semicolon = at;
    return uses;
}

// Reads one entry and moves to what follows it.
bool PascalSyntax::ReadUsesEntry(int& index, PascalUses& uses) const
{
    PascalUsesEntry entry;
    entry.First = index;
    while (index >= 0 && (FTokens[index].Type == SourceToken::Word || Is(index, ".")) && !Is(index, "in")) {
        entry.Name += Is(index, ".") ? QStringLiteral(".") : Word(index);
        entry.Last = index;
        index = Next(index);
    }
    if (entry.Name.isEmpty())
        return false;
    if (Is(index, "in") && Next(index) >= 0 && FTokens[Next(index)].Type == SourceToken::Text) {
        entry.Last = Next(index);
        const auto quoted = FTokens[entry.Last].In(FText);
        entry.FileName = quoted.sliced(1, qMax(qsizetype(0), quoted.size() - 2)).toString();
        entry.FileName.replace(QStringLiteral("''"), QStringLiteral("'"));
        index = Next(entry.Last);
    }
    uses.Entries.append(entry);
    return true;
}

// From an opening bracket to the one that closes it; -1 when none does.
int PascalSyntax::SkipPair(int index) const
{
    int depth = 0;
    for (; index >= 0; index = Next(index)) {
        if (Is(index, "(") || Is(index, "["))
            ++depth;
        else if (Is(index, ")") || Is(index, "]"))
            --depth;
        if (depth == 0)
            return index;
    }
    return -1;
}

// Whether the word that begins a type here is followed by members and an `end`.
bool PascalSyntax::IsClassBody(int index) const
{
    int before = Previous(index);
    if (Is(before, "packed"))
        before = Previous(before);
    if (!Is(before, "="))
        return false;
    int after = Next(index);
    if (after < 0 || Is(after, ";") || Is(after, "of"))
        return false;
    if (!Is(after, "("))
        return true;
    return !Is(Next(SkipPair(after)), ";");
}

// The semicolon that ends the declaration that begins here, over records and classes within it. The token before the
// `end` of the surroundings when they end first, and -1 when the text does.
int PascalSyntax::SkipDeclaration(int index) const
{
    int depth = 0;
    int last = index;
    for (; index >= 0; index = Next(index)) {
        if (Is(index, "(") || Is(index, "[")) {
            index = SkipPair(index);
            if (index < 0)
                return -1;
        } else if (Is(index, "record")) {
            ++depth;
        } else if (isOneOf(Word(index), { "class", "object", "interface", "dispinterface" }) && IsClassBody(index)) {
            ++depth;
        } else if (Is(index, "end")) {
            if (--depth < 0)
                return last;
        } else if (Is(index, ";") && depth == 0) {
            return index;
        }
        last = index;
    }
    return -1;
}
