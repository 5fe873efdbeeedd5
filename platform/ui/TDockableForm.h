#pragma once

#include "classes/Forms.h"

#include <QDockWidget>

class QSettings;
class QWidget;

// A window of the IDE whose place on the desktop is kept from session to session, under its desk section.
class TDesktopForm : public QDockWidget, public TForm {
    Q_OBJECT
public:
    explicit TDesktopForm(QWidget* parent = nullptr);

    bool AutoSave = false;
    QString DeskSection;
    bool SaveStateNecessary = false;
    // Writes and reads size, position, docking and visibility below the desk section.
    virtual void SaveWindowState(QSettings& desktop) const;
    virtual void LoadWindowState(QSettings& desktop);

    QObject* Handle() override { return this; }
};

// A window that docks into the IDE's main window. Show and hide by a person or by the program count: FormShow and
// FormHide run for them and for nothing else; minimising, switching tabs, floating and docking leave them alone.
// FormShow runs at once, FormHide when events are handled next and the window is still hidden.
class TDockableForm : public TDesktopForm {
    Q_OBJECT
public:
    using TDesktopForm::TDesktopForm;

    bool Floating() const { return isFloating(); }
    // Whether the window may be docked; one that may not floats.
    void SetDockable(bool dockable);
    // Brings the window up, in front of those it shares a place with.
    void ForceShow();
    // Shown by a person or by the program, whatever covers it now.
    bool IsWindowVisible() const override { return FShown; }
    void setVisible(bool visible) override;

protected:
    virtual void FormShow() { }
    virtual void FormHide() { }

private:
    bool FShown = false;
};

// The IDE's desktop: which windows it restores. Set by the workbench; without one, windows stay where they are.
class IDesktop {
public:
    // A window comes; the desktop docks it and restores its state.
    virtual void FormRegistered(TDockableForm* form) = 0;
    // A window goes.
    virtual void FormUnregistered(TDockableForm* form) = 0;

protected:
    ~IDesktop() = default;
};

namespace Deskutil {

void SetDesktop(IDesktop* desktop);
// Notes where the program keeps its window of that name, so that the desktop finds it. `address` outlives the note.
void RegisterFieldAddress(const QString& name, TDockableForm** address);
void UnregisterFieldAddress(TDockableForm** address);
// Tells the desktop of the window behind a noted address.
void RegisterDesktopFormClass(const QString& formName, const QString& deskSection);
// Gives the window the focus, in front.
void FocusWindow(QWidget* window);

}
