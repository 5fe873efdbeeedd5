#include "app/MainMenu.h"

#include <QHash>

namespace {

struct Row {
    // Of the top-level item; empty for a line within the menu before.
    const char* Menu;
    const char* Caption;
    Command Does;
    const char* Keys;
    const char* Hint;
};

constexpr Row Rows[] = {
    { "File", "&Open Project...", Command::Open, "Ctrl+O", "Opens a project or a project group" },
    { "File", "&Save", Command::Save, "Ctrl+S", "Saves form and unit of the module in front" },
    { "File", "Save &As...", Command::SaveAs, "Ctrl+Alt+S",
        "Saves form and unit of the module in front under another name" },
    { "File", "Save A&ll", Command::SaveAll, "Ctrl+Shift+S", "Saves everything that was changed" },
    { "File", "-", Command::None, "", "" },
    { "File", "&Close", Command::Close, "Ctrl+W", "Closes the module in front" },
    { "File", "Close &Project", Command::CloseProject, "", "Closes the active project" },
    { "File", "-", Command::None, "", "" },
    { "File", "E&xit", Command::Exit, "Ctrl+Q", "Ends the workbench" },
    { "Edit", "&Undo", Command::Undo, "Ctrl+Z", "Takes back the last gesture" },
    { "Edit", "&Redo", Command::Redo, "Ctrl+Y", "Makes the last gesture again that was taken back" },
    { "Edit", "-", Command::None, "", "" },
    { "Edit", "&Delete\tDel", Command::Delete, "", "Deletes the selected components" },
    { "Edit", "Select &All\tCtrl+A", Command::SelectAll, "", "Selects everything on the form" },
    { "Edit", "Select &Parent\tEsc", Command::SelectParent, "", "Selects what the component stands on" },
    { "Edit", "Re&name...\tF2", Command::Rename, "", "Gives the selected component another name" },
    { "View", "&Files", Command::ViewFiles, "", "Shows or hides the files of the projects" },
    { "View", "&Morvane", Command::ViewMorvane, "", "Shows or hides the tree of datasets" },
    { "View", "&Problems", Command::ViewProblems, "", "Shows or hides what is wrong in the files" },
    { "View", "-", Command::None, "", "" },
    { "View", "Toggle Form/&Unit", Command::ToggleFormSource, "F12", "Changes between a form and its unit" },
    { "Project", "&Allow Database Connections", Command::AllowConnections, "",
        "Lets the active project reach its databases" },
    { "Project", "&Reload Module", Command::ReloadModule, "", "Reads the files of the module in front again" },
    { "Tools", "&Keep a Log", Command::KeepLog, "", "Has Morvane write down what it does" },
    { "Tools", "&Show the Log", Command::ShowLog, "", "Shows what Morvane wrote down" },
    { "Tools", "&Restore the Configuration...", Command::RestoreConfiguration, "",
        "Puts the last configuration in place that could be read" },
    { "Help", "&User Guide", Command::UserGuide, "F1", "How to work with Morvane" },
    { "Help", "&About", Command::About, "", "What this is" },
};

QString NameOf(Command command)
{
    return QStringLiteral("cmd%1").arg(int(command));
}

TMenuItem* TopLevel(TMainMenu& menu, const QString& caption)
{
    const auto name = caption + QLatin1String("Menu");
    auto* item = menu.Items().FindByName(name);
    if (item)
        return item;
    item = new TMenuItem(menu.AsObject());
    item->SetName(name);
    item->SetCaption(u'&' + caption);
    menu.Items().Add(item);
    return item;
}

TMenuItem* FindBelow(TMenuItem& item, const QString& name)
{
    for (int i = 0; i < item.Count(); ++i)
        if (auto* found = item.Items(i)->FindByName(name))
            return found;
    return nullptr;
}

}

void MainMenu::Build(TMainMenu& menu, const std::function<void(Command)>& execute)
{
    for (const auto& row : Rows) {
        auto* item = new TMenuItem(menu.AsObject());
        item->SetCaption(QString::fromLatin1(row.Caption));
        item->SetHint(QString::fromLatin1(row.Hint));
        if (row.Does != Command::None)
            item->SetName(NameOf(row.Does));
        if (*row.Keys)
            item->setShortcut(QKeySequence(QString::fromLatin1(row.Keys)));
        item->OnClick = [execute, command = row.Does](QObject*) { execute(command); };
        TopLevel(menu, QString::fromLatin1(row.Menu))->Add(item);
    }
}

TMenuItem& MainMenu::Item(TMainMenu& menu, Command command)
{
    return *FindBelow(menu.Items(), NameOf(command));
}
