#include "units/CppUnit.h"

#include "files/FileFinder.h"
#include "units/UsedUnits.h"

// What is changed in the two files of a C++ unit.

Failure CppUnit::AddField(const QString& className, const FieldDeclaration& field)
{
    Failure failure;
    const auto found = RequireClass(className, failure);
    if (!found)
        return failure;
    auto& part = *ClassPart();
    const auto classPlace = part.Token(found->NameToken).Offset;
    if (!IsIdentifier(field.Name) || !IsTypeName(field.Type))
        return part.File.ProblemAt(
            classPlace, QStringLiteral("\"%1: %2\" is no declaration of a component").arg(field.Name, field.Type));
    auto type = field.Type;
    type.replace(u'.', QStringLiteral("::"));
    if (const auto* known = found->FieldNamed(field.Name)) {
        if (known->Declaration.Type.section(u':', -1) == type.section(u':', -1))
            return {};
        return part.File.ProblemAt(part.Token(known->Name).Offset,
            QStringLiteral("%1 is declared as %2 already").arg(field.Name, known->Declaration.Type));
    }
    const auto eol = part.File.LineEndAt(classPlace);
    const auto outer = part.File.IndentAt(classPlace);
    const auto line = type + QStringLiteral(" *") + field.Name + u';';
    const int depth = part.Token(found->NameToken).Depth;
    if (found->Published < 0) {
        const auto [place, ownLine] = part.Behind(found->Open, depth);
        auto section = outer + QStringLiteral("__published:") + eol + outer + u'\t' + line + eol;
        if (!found->StartAccess.isEmpty())
            section += outer + found->StartAccess + eol;
        return part.Change({ { place, 0, ownLine ? section : eol + section } });
    }
    auto indent = outer + u'\t';
    for (const auto& one : found->Fields) {
        if (part.StartsLine(one.First)) {
            indent = part.File.IndentAt(part.Token(one.First).Offset);
            break;
        }
    }
    const auto [place, ownLine]
        = part.Behind(found->Fields.isEmpty() ? found->Published : found->Fields.last().Last, depth);
    return part.Change({ { place, 0, ownLine ? indent + line + eol : u' ' + line } });
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
    const auto start = part.Token(field->First).Offset;
    if (field->Sharing > 1) {
        // The name with its star, and the comma that joins it to the others.
        int first = field->Name;
        while (part.Syntax.Is(part.Syntax.Previous(first), "*"))
            first = part.Syntax.Previous(first);
        const int before = part.Syntax.Previous(first);
        const int after = part.Syntax.Next(field->Name);
        if (part.Syntax.Is(before, ","))
            return part.Change(
                { { part.Token(before).Offset, part.Token(field->Name).End() - part.Token(before).Offset, {} } });
        const int next = part.Syntax.Next(after);
        return part.Change({ { part.Token(first).Offset, part.Token(next).Offset - part.Token(first).Offset, {} } });
    }
    const auto [place, ownLine] = part.Behind(field->Last, part.Token(field->Last).Depth);
    if (part.StartsLine(field->First) && ownLine) {
        const auto line = part.File.LineStart(start);
        return part.Change({ { line, place - line, {} } });
    }
    auto end = part.Token(field->Last).End();
    while (end < part.File.Text().size() && (part.File.Text()[end] == u' ' || part.File.Text()[end] == u'\t'))
        ++end;
    return part.Change({ { start, end - start, {} } });
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

// Behind the last include of the same kind that stands no deeper in conditionals than the others: behind the last of
// any kind where there is none, and behind the guard or at the start of a file that includes nothing.
Failure CppUnit::Include(Part& part, const UnitReference& unit)
{
    Failure failure;
    if (!IsSound(failure))
        return failure;
    if (!IsTypeName(unit.Scoped) || !IsTypeName(unit.Plain))
        return part.File.ProblemAt(0, QStringLiteral("\"%1\" is no name of a unit").arg(unit.Scoped));
    const auto line = IncludeLine(unit);
    const auto& includes = part.Syntax.Includes();
    int depth = -1;
    for (const auto& include : includes) {
        if (NamesUnit(include.Path.section(u'.', 0, -2).replace(u'\\', u'/').section(u'/', -1), unit))
            return {};
        const int here = part.Token(include.Token).Depth;
        depth = depth < 0 ? here : qMin(depth, here);
    }
    int behind = -1;
    for (const bool sameKind : { true, false }) {
        for (const auto& include : includes) {
            const bool fits = !sameKind || include.Quoted == line.contains(u'"');
            if (fits && part.Token(include.Token).Depth == depth && (behind < 0 || sameKind || behind < include.Token))
                behind = include.Token;
        }
        if (behind >= 0)
            break;
    }
    for (int i = 0; behind < 0 && i < part.Syntax.Tokens().size(); ++i) {
        if (part.Syntax.TextOf(i).startsWith(QLatin1String("#define")))
            behind = i;
    }
    const auto eol = part.File.LineEndAt(behind < 0 ? 0 : part.Token(behind).Offset);
    if (behind < 0)
        return part.Change({ { 0, 0, line + eol } });
    const auto [place, ownLine] = part.Behind(behind, part.Token(behind).Depth);
    return part.Change({ { place, 0, ownLine ? line + eol : eol + line } });
}
