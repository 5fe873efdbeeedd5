#pragma once

#include "visual/TMenu.h"

#include <QObject>

// The menu of a main window, without the window: a host that shows nothing has one too. TMainMenuBar shows it.
class TMainMenu : public QObject, public TMenu {
    Q_OBJECT
public:
    explicit TMainMenu(QObject* owner = nullptr);
    ~TMainMenu() override;

    QObject* AsObject() override { return this; }
};
