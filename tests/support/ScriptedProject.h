#pragma once

#include <QList>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <memory>

// A project written to a temporary folder by a few lines of form text, gone with the object.
//
//     ScriptedProject shop;
//     shop.DataModule(u"Data"_qs, u"object Books: TZAQuery\n object BooksTitle: TStringField\n end\nend"_qs);
//     shop.Form(u"MainForm"_qs);
//     host.Open(shop.Write());
//
// Each form stands in a unit "<form>Unit", which declares what the form's text says. Lines of the text may be indented
// at will; they are written with the indentation of form files. All forms are open when the project is opened, unless
// KeepClosed says otherwise; the first is the main form.
class ScriptedProject {
public:
    enum class Kind { Delphi, CppBuilder, Lazarus };
    explicit ScriptedProject(const QString& name = QStringLiteral("Shop"), Kind kind = Kind::Delphi);

    ScriptedProject& Form(const QString& name, const QString& components = {});
    ScriptedProject& DataModule(const QString& name, const QString& components = {});
    ScriptedProject& Frame(const QString& name, const QString& components = {});
    // A form that inherits from another of the project.
    ScriptedProject& InheritedForm(const QString& name, const QString& ancestor, const QString& components = {});
    // A unit without a form.
    ScriptedProject& Unit(const QString& name);
    // The form file is this text, as it stands.
    ScriptedProject& FormFile(const QString& name, const QByteArray& text);
    // The unit of the form has these bytes instead of what the text says.
    ScriptedProject& UnitFile(const QString& name, const QByteArray& text);
    // The interface (or implementation) of the form's unit uses another.
    ScriptedProject& Uses(const QString& form, const QString& unit);
    // The form is not open when the project is.
    ScriptedProject& KeepClosed(const QString& form);
    // "VCL" for Delphi and C++Builder and "LCL" for Lazarus unless it is set.
    ScriptedProject& Framework(const QString& framework);
    // Another place than a folder of its own, for the projects of one group.
    ScriptedProject& In(const QString& folder);

    // Writes all files and gives the project's.
    QString Write();
    QString ProjectFile() const;
    // Full paths of a form's unit and form file.
    QString UnitOf(const QString& form) const;
    QString FormOf(const QString& form) const;
    QString Path(const QString& fileName = {}) const;

    // The folder stays after the project, as long as the caller keeps this.
    std::unique_ptr<QTemporaryDir> TakeFolder() { return std::move(FOwnFolder); }

    static QByteArray Read(const QString& fileName);
    static void WriteFile(const QString& fileName, const QByteArray& bytes);
    // A group of those projects in the folder of the first.
    static QString WriteGroup(const QList<ScriptedProject*>& projects, const QString& name = QStringLiteral("All"));

private:
    struct Part {
        QString Name;
        QString Base;
        QString DesignClass;
        QString Components;
        bool IsInherited = false;
        bool HasForm = true;
        bool IsOpen = true;
        QStringList Uses = {};
        QByteArray FormText = {};
        QByteArray UnitText = {};
    };
    Part& PartOf(const QString& name);
    ScriptedProject& Add(const Part& part);
    QString UnitName(const Part& part) const;
    QByteArray FormTextOf(const Part& part) const;
    QByteArray UnitTextOf(const Part& part) const;
    QByteArray HeaderTextOf(const Part& part) const;
    QStringList DeclarationsOf(const Part& part, bool cpp) const;
    void WriteDelphi() const;
    void WriteCpp() const;
    void WriteLazarus() const;
    void WriteDesktop() const;

    std::unique_ptr<QTemporaryDir> FOwnFolder;
    QString FFolder;
    QString FName;
    Kind FKind;
    QString FFramework;
    QList<Part> FParts;
};
