#pragma once

#include "design/DesignIntf.h"
#include "model/MrvInterfaces.h"

#include <QPoint>

using TMrvDragList = QList<InterfacePtr<IMrvCustomComponentAttr>>;

// The drag of tree items towards a designer. The tree makes it and owns it.
class TMrvDragDBControl : public TDragControlObject {
public:
    TMrvDragDBControl(QObject* control, const TMrvDragList& selList);
    QString ClassName() const override { return QStringLiteral("TMrvDragDBControl"); }
    void Finished(QObject* target, int x, int y, bool accepted) override;
    int GetDragCursor(bool accepted, int x, int y) override;

    // Screen position last seen over a target.
    QPoint FCursorPoint;
    // Whether the last position could take the drop.
    bool FAccepted = false;
    TMrvDragList FSelList;

private:
    bool EveryItemAccepts(QObject* window);
};

// What a designer asks about such a drag, and tells when it ends on it.
class TDBControlTarget : public TDragTarget {
public:
    using TDragTarget::TDragTarget;
    bool DragOver(TPersistent* target, TDragObject* source, int x, int y, TDragState state) override;
    // Makes the control of each item, in list order, each 5 pixels under what the one before reports.
    void DragDrop(TPersistent* target, TDragObject* source, int x, int y) override;
};

namespace MrvDragAndDropIntf {

// The active model's list; nil while no project is attached.
InterfacePtr<IMrvDataSetList> GetDataSetList();
// Whether the items can be dropped on a form. Several always can; one by its kind and its choice of control.
bool GetDragAndDropAccepted(const TMrvDragList& list);
// Offers the drag target to the designers; there is no way back.
void Initialization();

}
