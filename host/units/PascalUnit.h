#pragma once

#include "files/SourceFile.h"
#include "units/PascalSyntax.h"
#include "units/SourceUnit.h"

// A unit of Object Pascal.
class PascalUnit : public SourceUnit {
public:
    PascalUnit(const SourceFile& file, PascalDialect dialect);

    QString UnitName() const override { return FSyntax.UnitName(); }
    std::optional<ClassDeclaration> FindClass(const QString& className) const override;
    QStringList InterfaceUses() const override { return FSyntax.InterfaceUses().Names(); }
    QStringList ImplementationUses() const override { return FSyntax.ImplementationUses().Names(); }
    Failure AddField(const QString& className, const FieldDeclaration& field) override;
    Failure RemoveField(const QString& className, const QString& fieldName) override;
    Failure RenameField(const QString& className, const QString& oldName, const QString& newName) override;
    Failure UseInInterface(const UnitReference& unit) override;
    Failure UseInImplementation(const UnitReference& unit) override;
    Failure SaveUnder(const QString& fileName) override;
    Failure RenameUsedUnit(const UnitRename& rename) override;
    bool DeclaresVariable(const QString& name, const QString& className) const override;
    Failure RenameForm(const FormRename& rename) override;
    Problems Check() const override;
    QList<FileContent> Files() const override { return { FFile.Content() }; }
    void Restore(const QList<FileContent>& files) override;

    const SourceFile& File() const { return FFile; }
    const PascalSyntax& Syntax() const { return FSyntax; }

private:
    // A place for a new line, or within a line where other code follows on it.
    struct Place {
        qsizetype Offset = 0;
        bool OwnLine = false;
    };

    const SourceToken& Token(int index) const { return FSyntax.Tokens()[index]; }
    Place Behind(int token, int depth) const;
    bool StartsLine(int token) const;
    std::optional<PascalClass> RequireClass(const QString& className, Failure& failure) const;
    Failure Change(const QList<SourceEdit>& edits);

    QString MemberIndent(const PascalClass& found) const;
    QList<SourceEdit> AdditionTo(const PascalClass& found, const FieldDeclaration& field) const;
    SourceEdit RemovalOf(const PascalField& field) const;
    SourceEdit RemovalOfName(const PascalField& field) const;

    QString NameFor(const UnitReference& unit) const;
    qsizetype EndOf(const PascalUsesEntry& entry) const;
    SourceEdit AdditionTo(const PascalUses& uses, const QString& name) const;
    QString Separator(const PascalUses& uses, int last, const QString& name) const;
    SourceEdit NewUses(int section, const QString& name) const;
    std::optional<SourceEdit> RemovalFrom(const PascalUses& uses, int index) const;

    // Renaming. `Before` and `After` are the neighbouring tokens of code, also in branches that are left out.
    int Before(int token) const;
    int After(int token) const;
    bool IsMember(int token, const QString& unitName) const;
    bool IsWord(int token, const QString& name) const;
    SourceEdit Replacing(int first, int last, const QString& text) const;
    void RenameInDirectives(const QString& oldBase, const QString& newBase, QList<SourceEdit>& edits) const;
    void RenameQualifiers(
        const QString& oldName, const QString& newName, const QStringList& members, QList<SourceEdit>& edits) const;
    std::optional<int> ForeignUse(const FormRename& rename) const;
    void RenameInComments(const FormRename& rename, QList<SourceEdit>& edits) const;

    SourceFile FFile;
    PascalDialect FDialect;
    PascalSyntax FSyntax;
};
