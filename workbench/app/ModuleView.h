#pragma once

#include "packages/PackageList.h"

#include <QTabWidget>

class FormSurface;
class Host;
class Module;
class QPlainTextEdit;

// One open module in the window: its form, and the text of its unit to look at. A module without a form shows the text
// alone.
class ModuleView : public QTabWidget {
    Q_OBJECT
public:
    ModuleView(Host& host, const PackageList& packages, Module& module, QWidget* parent = nullptr);

    Module& TheModule() const { return FModule; }
    // Nil for a module without a form.
    FormSurface* Surface() const { return FSurface; }
    QString Title() const;
    void ShowForm();
    void ShowSource(int line = 0, int column = 0);
    bool ShowsForm() const;
    // The texts are shown as they are now, the surface is painted anew.
    void Refresh();

private:
    void FillSource();

    Module& FModule;
    FormSurface* FSurface = nullptr;
    QPlainTextEdit* FSource;
    QByteArray FShownBytes;
};
