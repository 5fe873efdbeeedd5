#pragma once

#include <QString>

// The tool window for those who need to know no window class: there is at most one.

// Shows the window at the first FormActivated when true. It starts false, Register writes false and nothing writes
// true: the IDE's desktop restores the window. The flag and its tests stay as they are.
extern bool ShowOnStart;

namespace MrvToolWindow {

// Sets the start state of the unit: no window, ShowOnStart false.
void Initialization();

// Makes the window, hidden, unless it exists, and registers it with the IDE's desktop.
void CreateForm();
// Makes the window if need be, and shows it or brings it to the front with the focus.
void ShowForm();
// Takes the registration back and frees the window.
void RemoveForm();

// Selects the component's node, where there is one, and shows the window. Nothing happens while no project is attached.
void ShowMorvane(const QString& formName, const QString& componentName);
// Creates the default control of the named dataset on the named form.
void CreateDefaultControl(const QString& formName, const QString& componentName);

}
