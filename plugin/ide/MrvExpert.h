#pragma once

#include "toolsapi/ToolsAPI.h"

#include <QPointer>

class TMenuItem;

// The wizard that the IDE knows the plug-in by, and its item in the Tools menu. The IDE holds it from Register until
// the package goes; its end takes the item out of the menu.
class TMrvExpert : public NotifierOf<TNotifierObject, IOTAWizard> {
public:
    ~TMrvExpert() override;
    void Destroyed() override { }
    QString GetIDString() override;
    QString GetName() override;
    TWizardStates GetState() override { return wsEnabled; }
    // Shows the tool window.
    void Execute() override;

    QString GetMenuText() const;
    // The item's click event.
    void OnExecute(QObject* sender);
    // Puts the item at the very top of the Tools menu. An IDE without the menu is no error.
    void AddToolsMenuItem();

    // Belongs to the menu it stands in.
    QPointer<TMenuItem> FMenuItem;
};

// Made by Register and held by the IDE alone; nil once it is gone.
extern TMrvExpert* DockFrmExpert;

namespace MrvExpert {

// The package's entry: the IDE calls it once, after the units have initialised. Nothing leaves it.
void Register();

// Make and remove the tool window; failures are logged and go no further.
void Initialization();
void Finalization();

}
