#pragma once

#include "app/MainWindow.h"
#include "app/ModuleView.h"
#include "designer/FormSurface.h"
#include "rtl/TRegistry.h"
#include "services/Module.h"
#include "support/ScriptedProject.h"
#include "ui/TCustomTreeView.h"

#include <gtest/gtest.h>

#include <QTemporaryDir>
#include <QTest>

// The window with the real plug-in, on a configuration, a registry and settings of its own. Questions are answered as
// the test says and kept.
class WindowFixture : public ::testing::Test {
protected:
    WindowFixture()
        : Registry(Folder.filePath(QStringLiteral("registry.ini")))
    {
        qputenv("MORVANE_PACKAGES", MORVANE_SOURCE_DIR "/packages");
    }

    virtual std::unique_ptr<MainWindow> MakeWindow(SessionOptions options, const QString& settings)
    {
        return std::make_unique<MainWindow>(std::move(options), settings);
    }
    // A window as at the start of the program.
    void Start(const QString& project = {})
    {
        Window.reset();
        SessionOptions options;
        options.PrivateConfiguration = PrivateConfiguration;
        options.Parts.Registry = &Registry;
        options.Parts.MessageBox = [this](const QString& text, TMsgDlgType, TMsgDlgButtons) {
            Questions << text;
            return Answer;
        };
        options.Parts.Exceptions = [this](const Exception& exception) { Exceptions << exception.Message(); };
        Window = MakeWindow(std::move(options), Folder.filePath(QStringLiteral("window.ini")));
        Window->show();
        Window->StartPlugin();
        if (!project.isEmpty())
            Window->OpenProject(project);
        Settle();
    }
    void Settle()
    {
        QCoreApplication::processEvents();
        Window->Refresh();
    }
    TDockableForm& ToolWindow() { return *Window->TheSession().ToolWindow(); }
    QString Status() { return Window->findChild<QLabel*>(QStringLiteral("StatusText"))->text(); }
    QStringList Tabs()
    {
        QStringList titles;
        const auto* tabs = qobject_cast<QTabWidget*>(Window->centralWidget());
        for (int i = 0; i < tabs->count(); ++i)
            titles << tabs->tabText(i);
        return titles;
    }
    Module& FormModule(const QString& name) { return *Window->TheHost().FormModule(name); }

    QTemporaryDir Folder;
    TRegistryStore Registry;
    bool PrivateConfiguration = true;
    TModalResult Answer = mrCancel;
    QStringList Questions;
    QStringList Exceptions;
    std::unique_ptr<MainWindow> Window;
};
