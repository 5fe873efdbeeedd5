#pragma once

#include "files/SourceFile.h"
#include "units/CppSyntax.h"
#include "units/SourceUnit.h"

#include <functional>
#include <optional>

// A C++ unit: a source file and the header of the same name, which holds the form's class. What an interface uses is
// what the header includes, and what an implementation uses is what the source file includes.
class CppUnit : public SourceUnit {
public:
    // Either file may be named; the other is looked for beside it. A header alone, or a source file alone, will do.
    static std::unique_ptr<CppUnit> Open(const QString& fileName, Failure& failure);

    // From what Files() gave.
    static std::unique_ptr<CppUnit> From(const QList<FileContent>& files);

    CppUnit(const std::optional<SourceFile>& source, const std::optional<SourceFile>& header);

    QString UnitName() const override;
    std::optional<ClassDeclaration> FindClass(const QString& className) const override;
    QStringList InterfaceUses() const override;
    QStringList ImplementationUses() const override;
    Failure AddField(const QString& className, const FieldDeclaration& field) override;
    Failure RemoveField(const QString& className, const QString& fieldName) override;
    Failure RenameField(const QString& className, const QString& oldName, const QString& newName) override;

    // A unit named without a namespace that stands as a header beside this one is included in quotes; the library's
    // are included in angle brackets with the extension .hpp.
    Failure UseInInterface(const UnitReference& unit) override;
    Failure UseInImplementation(const UnitReference& unit) override;
    Failure SaveUnder(const QString& fileName) override;
    Failure RenameUsedUnit(const UnitRename& rename) override;
    bool DeclaresVariable(const QString& name, const QString& className) const override;
    Failure RenameForm(const FormRename& rename) override;
    Problems Check() const override;
    QList<FileContent> Files() const override;
    void Restore(const QList<FileContent>& files) override;

private:
    // One file of the pair with what it consists of.
    struct Part {
        SourceFile File;
        CppSyntax Syntax;

        explicit Part(const SourceFile& file)
            : File(file)
            , Syntax(file.Text())
        {
        }
        Failure Change(const QList<SourceEdit>& edits);
        bool StartsLine(int token) const;
        const SourceToken& Token(int index) const { return Syntax.Tokens()[index]; }
        std::pair<qsizetype, bool> Behind(int token, int depth) const;
    };

    const Part* ClassPart() const { return FHeader ? &*FHeader : FSource ? &*FSource : nullptr; }
    Part* ClassPart() { return FHeader ? &*FHeader : FSource ? &*FSource : nullptr; }
    std::optional<CppClass> RequireClass(const QString& className, Failure& failure) const;
    QString Folder() const;
    QString IncludeLine(const UnitReference& unit) const;
    Failure Include(Part& part, const UnitReference& unit);
    QList<Part*> Parts();
    Failure ChangeAll(const std::function<Failure(Part& part, QList<SourceEdit>& edits)>& collect);

    std::optional<Part> FSource;
    std::optional<Part> FHeader;
};
