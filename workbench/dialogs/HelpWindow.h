#pragma once

#include <QString>

class QWidget;

// The user guide in a window of its own.
namespace HelpWindow {

void Show(QWidget& parent);
// The guide's file: beside the program, as installed, or in the source tree; empty where there is none.
QString GuideFile();

}
