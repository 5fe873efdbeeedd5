#include "units/PascalUnit.h"

#include "units/UsedUnits.h"

// The uses clauses of a Pascal unit: what is added to them, and how it is laid out.

namespace {

constexpr qsizetype longestLine = 80;

}

QString PascalUnit::NameFor(const UnitReference& unit) const
{
    const bool scoped = FDialect == PascalDialect::Delphi && AreScoped(InterfaceUses() + ImplementationUses());
    return scoped ? unit.Scoped : unit.Plain;
}

Failure PascalUnit::UseInInterface(const UnitReference& unit)
{
    Failure failure;
    if (!IsSound(failure))
        return failure;
    if (!IsTypeName(unit.Scoped) || !IsTypeName(unit.Plain))
        return FFile.ProblemAt(0, QStringLiteral("\"%1\" is no name of a unit").arg(unit.Scoped));
    if (NamesUnit(UnitName(), unit) || FSyntax.InterfaceUses().IndexOf(unit) >= 0)
        return {};
    const auto& uses = FSyntax.InterfaceUses();
    const auto name = NameFor(unit);
    QList<SourceEdit> edits { uses.Exists() ? AdditionTo(uses, name) : NewUses(FSyntax.Interface(), name) };
    // A unit may not be named in both clauses.
    const int second = FSyntax.ImplementationUses().IndexOf(unit);
    if (second >= 0) {
        const auto removal = RemovalFrom(FSyntax.ImplementationUses(), second);
        if (!removal)
            return FFile.ProblemAt(Token(FSyntax.ImplementationUses().Entries[second].First).Offset,
                QStringLiteral("%1 is needed by the interface, and cannot be moved there from between these directives")
                    .arg(name));
        edits << *removal;
    }
    return Change(edits);
}

Failure PascalUnit::UseInImplementation(const UnitReference& unit)
{
    Failure failure;
    if (!IsSound(failure))
        return failure;
    if (!IsTypeName(unit.Scoped) || !IsTypeName(unit.Plain))
        return FFile.ProblemAt(0, QStringLiteral("\"%1\" is no name of a unit").arg(unit.Scoped));
    if (FSyntax.Implementation() < 0)
        return FFile.ProblemAt(0, QStringLiteral("this unit has no implementation section"));
    const bool used = FSyntax.InterfaceUses().IndexOf(unit) >= 0 || FSyntax.ImplementationUses().IndexOf(unit) >= 0;
    if (used || NamesUnit(UnitName(), unit))
        return {};
    const auto& uses = FSyntax.ImplementationUses();
    const auto name = NameFor(unit);
    return Change({ uses.Exists() ? AdditionTo(uses, name) : NewUses(FSyntax.Implementation(), name) });
}

// The end of an entry, with the form that a program names in a comment behind the file's name.
qsizetype PascalUnit::EndOf(const PascalUsesEntry& entry) const
{
    auto end = Token(entry.Last).End();
    if (entry.FileName.isEmpty())
        return end;
    for (int next = entry.Last + 1; next < FSyntax.Tokens().size() && !Token(next).IsCode(); ++next) {
        const auto text = Token(next).In(FFile.Text());
        if (text.contains(u'\n') || text.contains(u'\r'))
            break;
        if (Token(next).Type == SourceToken::Comment && text.startsWith(u'{'))
            end = Token(next).End();
    }
    return end;
}

// Behind the last entry that no conditional encloses, or right behind the keyword where all of them are enclosed.
SourceEdit PascalUnit::AdditionTo(const PascalUses& uses, const QString& name) const
{
    const int depth = Token(uses.Keyword).Depth;
    for (auto i = uses.Entries.size() - 1; i >= 0; --i) {
        const auto& entry = uses.Entries[i];
        if (Token(entry.First).Depth == depth)
            return { EndOf(entry), 0, Separator(uses, int(i), name) + name };
    }
    return { Token(uses.Keyword).End(), 0, u' ' + name + (uses.Entries.isEmpty() ? QString() : QStringLiteral(",")) };
}

// What stands between the last entry and a new one, in the manner of the clause: an entry a line, commas at the start
// of lines, or lines that are filled.
QString PascalUnit::Separator(const PascalUses& uses, int last, const QString& name) const
{
    const auto& entry = uses.Entries[last];
    const auto start = Token(entry.First).Offset;
    const auto eol = FFile.LineEndAt(Token(uses.Keyword).Offset);
    const int comma = last > 0 ? FSyntax.Previous(entry.First) : -1;
    if (comma >= 0 && StartsLine(comma)) {
        const auto gap = start - Token(comma).End();
        return eol + FFile.IndentAt(start) + FFile.Text().sliced(Token(comma).Offset, gap + 1);
    }
    const auto continued = QStringLiteral(",") + eol
        + (FFile.LineStart(start) == FFile.LineStart(Token(uses.Keyword).Offset)
                ? FFile.IndentAt(start) + QStringLiteral("  ")
                : FFile.IndentAt(start));
    const bool listed = last > 0 && StartsLine(entry.First) && (StartsLine(uses.Entries[last - 1].First) || last == 1);
    if (listed)
        return continued;
    const auto length = Token(entry.Last).End() - FFile.LineStart(Token(entry.Last).Offset) + name.size() + 3;
    return length > longestLine ? continued : QStringLiteral(", ");
}

SourceEdit PascalUnit::NewUses(int section, const QString& name) const
{
    const auto eol = FFile.LineEndAt(Token(section).Offset);
    const auto clause = QStringLiteral("uses") + eol + QStringLiteral("  ") + name + u';';
    const auto place = Behind(section, Token(section).Depth);
    return { place.Offset, 0, place.OwnLine ? eol + clause + eol : eol + eol + clause };
}

// An entry with one of its commas, or the whole clause when it is the only one. Nothing where a conditional stands
// between the entry and its neighbours.
std::optional<SourceEdit> PascalUnit::RemovalFrom(const PascalUses& uses, int index) const
{
    const int depth = Token(uses.Keyword).Depth;
    const auto outside = [&](int entry) { return Token(uses.Entries[entry].First).Depth == depth; };
    if (!outside(index))
        return {};
    if (uses.Entries.size() == 1) {
        const auto place = Behind(uses.Semicolon, depth);
        const bool alone = StartsLine(uses.Keyword) && place.OwnLine;
        const auto start = alone ? FFile.LineStart(Token(uses.Keyword).Offset) : Token(uses.Keyword).Offset;
        return SourceEdit { start, (alone ? place.Offset : Token(uses.Semicolon).End()) - start, {} };
    }
    const auto& entry = uses.Entries[index];
    if (index + 1 < uses.Entries.size() && outside(index + 1)) {
        const auto start = Token(entry.First).Offset;
        return SourceEdit { start, Token(uses.Entries[index + 1].First).Offset - start, {} };
    }
    if (index == 0 || !outside(index - 1))
        return {};
    const auto start = Token(uses.Entries[index - 1].Last).End();
    return SourceEdit { start, Token(entry.Last).End() - start, {} };
}
