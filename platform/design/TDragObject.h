#pragma once

#include "visual/TCursor.h"

#include <QMimeData>
#include <QPointer>
#include <QString>

class QObject;
class TPersistent;

enum TDragState { dsDragEnter, dsDragLeave, dsDragMove };

// What is being dragged. Made by the source of the drag, who owns it; designers find their drag target by ClassName.
class TDragObject {
public:
    TDragObject() = default;
    TDragObject(const TDragObject&) = delete;
    TDragObject& operator=(const TDragObject&) = delete;
    virtual ~TDragObject() = default;
    virtual QString ClassName() const = 0;
    // The drag is over; `accepted` says whether it was dropped on something that took it.
    virtual void Finished(QObject* target, int x, int y, bool accepted);
    // The cursor (a TCursor) to show at that screen position.
    virtual int GetDragCursor(bool accepted, int x, int y);
};

// A drag that a control (a widget) started.
class TDragControlObject : public TDragObject {
public:
    explicit TDragControlObject(QObject* control);
    QObject* Control() const { return FControl; }

private:
    QPointer<QObject> FControl;
};

// How a drag object travels through the window system: the designer's surface takes it from the event's data.
class TDragObjectData : public QMimeData {
    Q_OBJECT
public:
    static constexpr auto Format = "application/x-morvane-drag-object";
    // Does not own the object, which outlives the drag.
    explicit TDragObjectData(TDragObject* object);
    TDragObject* Object() const { return FObject; }

private:
    TDragObject* FObject;
};
