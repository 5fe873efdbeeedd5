#include "menus/TPopupList.h"

#include "menus/TPopupMenuEx.h"
#include "visual/TApplication.h"

#include <QApplication>
#include <QKeyEvent>

std::unique_ptr<TPopupList> PopupList;

namespace {

// Hears what the windows of the menus are told.
class PopupWindow : public QObject {
public:
    explicit PopupWindow(TPopupList& list)
        : FList(list)
    {
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Leave || event->type() == QEvent::Hide)
            FList.MenuSelect(nullptr, false);
        if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->matches(QKeySequence::HelpContents))
            return help(*qobject_cast<QMenu*>(watched));
        return false;
    }

private:
    bool help(const QMenu& menu)
    {
        const auto* item = qobject_cast<TMenuItem*>(menu.activeAction());
        if (item != nullptr)
            FList.Help(*item);
        return item != nullptr;
    }

    TPopupList& FList;
};

}

TPopupList::TPopupList() = default;

TPopupList::~TPopupList() = default;

void TPopupList::Add(TPopupMenuEx* menu)
{
    if (!FWindow)
        FWindow = std::make_unique<PopupWindow>(*this);
    FMenus << menu;
    Watch(menu);
    QObject::connect(menu, &QMenu::hovered, FWindow.get(),
        [this](QAction* action) { MenuSelect(qobject_cast<TMenuItem*>(action), true); });
}

void TPopupList::Remove(TPopupMenuEx* menu)
{
    FMenus.removeOne(menu);
    if (FMenus.isEmpty())
        FWindow.reset();
}

void TPopupList::Watch(QObject* window)
{
    if (FWindow)
        window->installEventFilter(FWindow.get());
}

TPopupMenuEx* TPopupList::FindMenu(const TMenuItem* item) const
{
    const auto* menu = item == nullptr ? nullptr : item->GetParentMenu();
    for (auto* candidate : FMenus) {
        if (menu == static_cast<const TMenu*>(candidate))
            return candidate;
    }
    return nullptr;
}

void TPopupList::MenuSelect(TMenuItem* item, bool highlighted)
{
    auto* menu = FindMenu(item);
    if (menu == nullptr) {
        TApplication::Instance().SetHint({});
        return;
    }
    TApplication::Instance().SetHint(item->Hint());
    if (menu->Cursor() == crDefault)
        return;
    auto* submenu = item->Parent()->menu();
    QWidget& window = submenu != nullptr ? *submenu : *menu;
    if (highlighted)
        window.setCursor(TScreen::Cursors(menu->Cursor()));
    else
        window.unsetCursor();
}

void TPopupList::Help(const TMenuItem& item)
{
    if (FindMenu(&item) == nullptr)
        return;
    int context = 0;
    for (const auto* place = &item; place != nullptr && context == 0; place = place->Parent())
        context = place->HelpContext();
    auto& application = TApplication::Instance();
    const auto* form = QApplication::activeWindow();
    if (form != nullptr && form->windowFlags().testFlag(Qt::WindowContextHelpButtonHint))
        application.HelpCommand(HELP_CONTEXTPOPUP, context);
    else
        application.HelpContext(context);
}
