#pragma once

#include <QMenuBar>

class TMainMenu;

// The bar of a main window that shows a TMainMenu. The menu is not owned and may go first.
class TMainMenuBar : public QMenuBar {
    Q_OBJECT
public:
    explicit TMainMenuBar(TMainMenu& menu, QWidget* parent = nullptr);
};
