#include "rtl/Messages.h"

#include <QCoreApplication>

QEvent::Type TMessageEvent::EventType()
{
    static const auto type = QEvent::Type(QEvent::registerEventType());
    return type;
}

void PostMessage(QObject* window, unsigned msg, quintptr wParam, quintptr lParam)
{
    if (window)
        QCoreApplication::postEvent(window, new TMessageEvent(msg, wParam, lParam));
}
