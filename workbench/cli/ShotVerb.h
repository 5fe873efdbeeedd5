#pragma once

#include "cli/Verb.h"

class MainWindow;
class QImage;

// morvane shot PROJECT [--form FORM] -o FILE.png: a picture of the window with the project open, or of one form.
class ShotVerb : public Verb {
public:
    ShotVerb();

protected:
    ExitStatus Run() override;

private:
    QImage FormPicture(MainWindow& window);
    QImage WindowPicture(MainWindow& window);
};
