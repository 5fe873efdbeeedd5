#include "ui/TMainMenuBar.h"

#include "ui/MenuMirror.h"
#include "visual/TMainMenu.h"

TMainMenuBar::TMainMenuBar(TMainMenu& menu, QWidget* parent)
    : QMenuBar(parent)
{
    new MenuMirror(menu.Items(), *this, {});
}
