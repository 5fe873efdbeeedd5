#pragma once

#include <QEvent>

class QObject;

// A message that was posted to a window; it arrives in the window's customEvent, in the order of posting.
class TMessageEvent : public QEvent {
public:
    static QEvent::Type EventType();
    TMessageEvent(unsigned msg, quintptr wParam, quintptr lParam)
        : QEvent(EventType())
        , Msg(msg)
        , WParam(wParam)
        , LParam(lParam)
    {
    }
    const unsigned Msg;
    const quintptr WParam;
    const quintptr LParam;
};

// Queues a message for the window and returns at once. Nothing happens for nil. A window that goes takes what is queued
// for it along.
void PostMessage(QObject* window, unsigned msg, quintptr wParam = 0, quintptr lParam = 0);
