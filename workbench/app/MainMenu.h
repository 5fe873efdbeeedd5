#pragma once

#include "visual/TMainMenu.h"

#include <functional>

// What a person can tell the main window to do. The window implements each; menu and toolbar name them.
enum class Command {
    None,
    Open,
    Save,
    SaveAs,
    SaveAll,
    Close,
    CloseProject,
    Exit,
    Undo,
    Redo,
    Delete,
    SelectAll,
    SelectParent,
    Rename,
    ViewFiles,
    ViewMorvane,
    ViewProblems,
    ToggleFormSource,
    AllowConnections,
    ReloadModule,
    KeepLog,
    ShowLog,
    RestoreConfiguration,
    UserGuide,
    About,
};

// Fills the main menu from its table: every item has the name and the command of its row. The top-level item
// "ToolsMenu" is where design packages put theirs.
//
// To add a command: name it above, give it a row in MainMenu.cpp, and a case in MainWindow::Execute.
namespace MainMenu {

void Build(TMainMenu& menu, const std::function<void(Command)>& execute);
// The item of the command.
TMenuItem& Item(TMainMenu& menu, Command command);

}
