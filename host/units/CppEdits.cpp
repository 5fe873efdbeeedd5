#include "units/CppUnit.h"

#include "files/FileFinder.h"
#include "units/UsedUnits.h"

#include <QFileInfo>

#include <algorithm>
#include <climits>

// What is changed in the two files of a C++ unit.

// The field's line behind the others of the published section, which is made where there is none.
SourceEdit CppUnit::Part::AdditionTo(const CppClass& found, const FieldDeclaration& field) const
{
    const auto eol = File.LineEndAt(Token(found.NameToken).Offset);
    const auto outer = File.IndentAt(Token(found.NameToken).Offset);
    const int depth = Token(found.NameToken).Depth;
    const auto line = field.Type + QStringLiteral(" *") + field.Name + u';';
    if (found.Published < 0) {
        const auto [place, ownLine] = Behind(found.Open, depth);
        auto section = outer + QStringLiteral("__published:") + eol + outer + u'\t' + line + eol;
        if (!found.StartAccess.isEmpty())
            section += outer + found.StartAccess + eol;
        return { place, 0, ownLine ? section : eol + section };
    }
    auto indent = outer + u'\t';
    for (const auto& one : found.Fields) {
        if (StartsLine(one.First)) {
            indent = File.IndentAt(Token(one.First).Offset);
            break;
        }
    }
    const auto [place, ownLine] = Behind(found.Fields.isEmpty() ? found.Published : found.Fields.last().Last, depth);
    return { place, 0, ownLine ? indent + line + eol : u' ' + line };
}

// The whole lines of a declaration, with the comment at its end, where it stands alone on them.
SourceEdit CppUnit::Part::RemovalOf(const CppField& field) const
{
    const auto start = Token(field.First).Offset;
    const auto [place, ownLine] = Behind(field.Last, Token(field.Last).Depth);
    if (StartsLine(field.First) && ownLine) {
        const auto line = File.LineStart(start);
        return { line, place - line, {} };
    }
    auto end = Token(field.Last).End();
    while (end < File.Text().size() && (File.Text()[end] == u' ' || File.Text()[end] == u'\t'))
        ++end;
    return { start, end - start, {} };
}

// One name with its star out of a declaration of several, and the comma that joins it to the others.
SourceEdit CppUnit::Part::RemovalOfName(const CppField& field) const
{
    int first = field.Name;
    while (Syntax.Is(Syntax.Previous(first), "*"))
        first = Syntax.Previous(first);
    const int before = Syntax.Previous(first);
    if (Syntax.Is(before, ","))
        return { Token(before).Offset, Token(field.Name).End() - Token(before).Offset, {} };
    const int next = Syntax.Next(Syntax.Next(field.Name));
    return { Token(first).Offset, Token(next).Offset - Token(first).Offset, {} };
}

Failure CppUnit::AddField(const QString& className, const FieldDeclaration& wanted)
{
    Failure failure;
    const auto found = RequireClass(className, failure);
    if (!found)
        return failure;
    auto& part = *ClassPart();
    if (!IsIdentifier(wanted.Name) || !IsTypeName(wanted.Type))
        return part.File.ProblemAt(part.Token(found->NameToken).Offset,
            QStringLiteral("\"%1: %2\" is no declaration of a component").arg(wanted.Name, wanted.Type));
    auto field = wanted;
    field.Type.replace(u'.', QStringLiteral("::"));
    if (const auto* known = found->FieldNamed(field.Name)) {
        if (known->Declaration.Type.section(u':', -1) == field.Type.section(u':', -1))
            return {};
        return part.File.ProblemAt(part.Token(known->Name).Offset,
            QStringLiteral("%1 is declared as %2 already").arg(field.Name, known->Declaration.Type));
    }
    return part.Change({ part.AdditionTo(*found, field) });
}

Failure CppUnit::RemoveField(const QString& className, const QString& fieldName)
{
    Failure failure;
    const auto found = RequireClass(className, failure);
    if (!found)
        return failure;
    auto& part = *ClassPart();
    const auto* field = found->FieldNamed(fieldName);
    if (!field)
        return part.File.ProblemAt(part.Token(found->NameToken).Offset,
            QStringLiteral("the class %1 has no field %2").arg(className, fieldName));
    return part.Change({ field->Sharing > 1 ? part.RemovalOfName(*field) : part.RemovalOf(*field) });
}

Failure CppUnit::RenameField(const QString& className, const QString& oldName, const QString& newName)
{
    Failure failure;
    const auto found = RequireClass(className, failure);
    if (!found)
        return failure;
    auto& part = *ClassPart();
    const auto* field = found->FieldNamed(oldName);
    if (!field)
        return part.File.ProblemAt(part.Token(found->NameToken).Offset,
            QStringLiteral("the class %1 has no field %2").arg(className, oldName));
    const auto& name = part.Token(field->Name);
    if (!IsIdentifier(newName))
        return part.File.ProblemAt(name.Offset, QStringLiteral("\"%1\" is no name of a component").arg(newName));
    if (const auto* other = found->FieldNamed(newName); other && other->Name != field->Name)
        return part.File.ProblemAt(
            part.Token(other->Name).Offset, QStringLiteral("%1 is declared already").arg(newName));
    return part.Change({ { name.Offset, name.Length, newName } });
}

QString CppUnit::IncludeLine(const UnitReference& unit) const
{
    const auto own = Folder() + u'/' + unit.Plain + QStringLiteral(".h");
    if (const auto header = FindFileIgnoringCase(own); !header.isEmpty())
        return QStringLiteral("#include \"%1\"").arg(header.section(u'/', -1));
    const bool scoped = AreScoped(InterfaceUses() + ImplementationUses());
    return QStringLiteral("#include <%1.hpp>").arg(scoped ? unit.Scoped : unit.Plain);
}

Failure CppUnit::UseInInterface(const UnitReference& unit)
{
    return Include(*ClassPart(), unit);
}

Failure CppUnit::UseInImplementation(const UnitReference& unit)
{
    for (const auto& used : InterfaceUses()) {
        if (NamesUnit(used, unit))
            return {};
    }
    return Include(FSource ? *FSource : *FHeader, unit);
}

// Whether the part includes the unit, under either name and from any folder.
bool CppUnit::Part::Includes(const UnitReference& unit) const
{
    const auto& includes = Syntax.Includes();
    return std::any_of(includes.cbegin(), includes.cend(), [&unit](const CppInclude& include) {
        const auto path = QString(include.Path).replace(u'\\', u'/');
        return NamesUnit(QFileInfo(path).completeBaseName(), unit);
    });
}

// The token behind which an include is added: the last include of the same kind that stands no deeper in conditionals
// than the others, the last of any kind where there is none, else the file's guard; -1 for the start of the file.
int CppUnit::Part::IncludePlace(bool quoted) const
{
    int depth = INT_MAX;
    for (const auto& include : Syntax.Includes())
        depth = qMin(depth, Token(include.Token).Depth);
    int sameKind = -1;
    int anyKind = -1;
    for (const auto& include : Syntax.Includes()) {
        if (Token(include.Token).Depth > depth)
            continue;
        anyKind = include.Token;
        sameKind = include.Quoted == quoted ? include.Token : sameKind;
    }
    if (anyKind >= 0)
        return sameKind >= 0 ? sameKind : anyKind;
    for (int i = 0; i < Syntax.Tokens().size(); ++i) {
        if (Syntax.TextOf(i).startsWith(QLatin1String("#define")))
            return i;
    }
    return -1;
}

Failure CppUnit::Include(Part& part, const UnitReference& unit)
{
    Failure failure;
    if (!IsSound(failure))
        return failure;
    if (!IsTypeName(unit.Scoped) || !IsTypeName(unit.Plain))
        return part.File.ProblemAt(0, QStringLiteral("\"%1\" is no name of a unit").arg(unit.Scoped));
    if (part.Includes(unit))
        return {};
    const auto line = IncludeLine(unit);
    const int behind = part.IncludePlace(line.contains(u'"'));
    const auto eol = part.File.LineEndAt(behind < 0 ? 0 : part.Token(behind).Offset);
    if (behind < 0)
        return part.Change({ { 0, 0, line + eol } });
    const auto [place, ownLine] = part.Behind(behind, part.Token(behind).Depth);
    return part.Change({ { place, 0, ownLine ? line + eol : eol + line } });
}
