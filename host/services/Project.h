#pragma once

#include "forms/FormDocument.h"
#include "projects/ProjectDescription.h"
#include "rtl/TInterfacedObject.h"
#include "services/NotifierList.h"
#include "services/ProjectText.h"
#include "toolsapi/ToolsAPI.h"

#include <QHash>

#include <memory>

class Host;
class Module;
class Project;

// A module that the project names, open or not.
class ModuleInfo : public Facade<IOTAModuleInfo> {
public:
    ModuleInfo(Project& project, int index)
        : FProject(project)
        , FIndex(index)
    {
    }
    TOTAModuleType GetModuleType() override;
    QString GetFileName() override;
    QString GetFormName() override;
    InterfacePtr<IOTAModule> OpenModule() override;

private:
    Project& FProject;
    int FIndex;
};

// An open project. A facade: after closing it answers nil and empty texts. It knows the forms of the project by their
// classes, also of modules that are not open.
class Project : public Facade<IOTAProject> {
public:
    Project(Host& host, const ProjectDescription& description);
    ~Project() override;

    const ProjectDescription& Description() const { return FDescription; }
    bool IsOpen() const { return FIsOpen; }
    bool IsLazarus() const { return FDescription.IsLazarus(); }
    QString ClassGroup() const;
    // Answers nil from now on; the listeners are told.
    void Close();
    // The modules that the user had open were opened again.
    bool DesktopIsOpen = false;

    // The module of that file, without regard to case; nil.
    const ModuleDescription* FindFile(const QString& fileName) const;
    // The module whose form is of that class; nil.
    const ModuleDescription* FindFormClass(const QString& className);
    // As FormClassSource.
    FormDocument* DocumentOf(const QString& className);
    QString AncestorOf(const QString& className);
    // What was read of a module's form is out of date.
    void ForgetForm(const QString& className);
    // The class of an open form has another name now.
    void ForgetFormClasses();
    // The project's own files as they are edited.
    ProjectText& Text() { return FText; }
    // A module was saved: under these file names, with this form.
    void NoteModule(const QString& oldFile, const ModuleDescription& module);
    // "TForm" of "Vcl.Forms.TForm" and "Forms::TForm".
    static QString PlainClassName(const QString& name);
    Host& TheHost() { return FHost; }

    // IOTAModule, IOTAProject
    QString GetFileName() override { return FIsOpen ? FDescription.FileName : QString(); }
    int GetModuleFileCount() override { return 0; }
    InterfacePtr<IOTAEditor> GetModuleFileEditor(int) override { return nullptr; }
    int AddNotifier(const InterfacePtr<IOTAModuleNotifier>& notifier) override { return Notifiers.Add(notifier); }
    void RemoveNotifier(int index) override { Notifiers.Remove(index); }
    int GetModuleCount() override { return FIsOpen ? int(FDescription.Modules.size()) : 0; }
    InterfacePtr<IOTAModuleInfo> GetModule(int index) override;
    InterfacePtr<IOTAModuleInfo> FindModuleInfo(const QString& fileName) override;
    QString GetPersonality() override { return FIsOpen ? FDescription.Personality : QString(); }
    QString GetFrameworkType() override { return FIsOpen ? FDescription.FrameworkType : QString(); }
    NotifierList<IOTAModuleNotifier> Notifiers;

private:
    void IndexFiles();
    QString FormClassOf(const ModuleDescription& module) const;

    Host& FHost;
    ProjectDescription FDescription;
    ProjectText FText { FDescription };
    std::vector<ModuleInfo*> FInfos;
    QHash<QString, qsizetype> FByFile;
    QHash<QString, qsizetype> FByClass;
    bool FClassesKnown = false;
    QHash<QString, std::shared_ptr<FormDocument>> FDocuments;
    QHash<QString, QString> FAncestors;
    bool FIsOpen = true;
};
