#pragma once

#include "designer/Designer.h"
#include "packages/PackageList.h"
#include "rtl/TRegistry.h"
#include "rtl/TTimer.h"
#include "services/Host.h"
#include "services/Module.h"
#include "services/Project.h"
#include "support/ScriptedProject.h"
#include "visual/TMainMenu.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>

// Writes down everything that the IDE tells its listeners, one line each, in the order of telling:
//
//     file ofnFileOpened DataUnit.pas
//     activated DataUnit.dfm                        renamed DataUnit.dfm Books -> Titles
//     inserted Data.Books        deleted Data.Books        modified Data
//     selection Data: Books, BooksTitle             opened Data            closed Data
//     destroyed DataUnit.dfm                        module DataUnit.pas renamed to NewUnit.pas
//
// File names stand without their folders. Listens to every form and module that opens while it lives.
class HostRecorder {
public:
    explicit HostRecorder(Host& host);
    ~HostRecorder();
    // What was told since the last call, each line closed.
    std::string Take();
    void Write(const QString& line) { FLines << line; }
    // Listens to the form and the unit of a module; done by itself for those that open.
    void Watch(Module& module);
    // Called with each line when it is written; for tests that act in the middle of a callback.
    std::function<void(const QString& line)> OnLine;

private:
    class Listener;
    class Pen;
    void Note(const QString& line);
    Host& FHost;
    std::shared_ptr<Pen> FPen;
    QStringList FLines;
    InterfacePtr<IOTAIDENotifier> FIde;
    InterfacePtr<IDesignNotification> FDesigns;
    int FIndex = -1;
};

// A host without a window, with a clock that the test moves, a registry of its own, a main menu with a Tools menu, and
// a message box that answers what the test says and keeps what it asked.
class HostFixture : public ::testing::Test {
protected:
    // With the catalogues of the repository, or with the platform's own classes alone. The catalogues stay loaded for
    // all tests of the program.
    enum class Catalogues { None, Installed };
    explicit HostFixture(Catalogues catalogues = Catalogues::None);
    ~HostFixture() override;

    static PackageList& Packages();
    // Opens the scripted project; the test fails when it cannot be opened.
    void Open(ScriptedProject& project);
    // The open form of that name; the test stops when there is none.
    Module& FormOf(const QString& name);
    Designer& DesignerOf(const QString& name) { return FormOf(name).TheDesigner(); }
    // The component "Books" of "Data" is "Data.Books"; nil.
    TComponent* Component(const QString& formDotName);
    // The texts of a form as they would be saved.
    QByteArray FormText(const QString& form);
    QByteArray UnitText(const QString& form);
    // The problems that were reported, one line each, without folders.
    std::string Problems();

    ManualClock Clock;
    QTemporaryDir Folder;
    TRegistryStore Registry;
    TMainMenu Menu;
    TMenuItem* ToolsMenu;
    // What the message box answers, and what it asked.
    TModalResult Answer = mrYes;
    QStringList Questions;
    QStringList Exceptions;
    std::unique_ptr<Host> TheHost;
};

// The same with the catalogues.
class PackagedHostFixture : public HostFixture {
protected:
    PackagedHostFixture()
        : HostFixture(Catalogues::Installed)
    {
    }
};

// The lines that the second text has more than the first, each with "+" before it, and those it lacks, with "-".
std::string LineDifference(const QByteArray& before, const QByteArray& after);
