#pragma once

class QWidget;
class UserConfiguration;

// What the plug-in wrote down, as text, in a window of its own.
namespace LogWindow {

void Show(QWidget& parent, const UserConfiguration& configuration);

}
