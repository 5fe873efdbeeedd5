#include "design/TDragObject.h"

void TDragObject::Finished(QObject*, int, int, bool) { }

int TDragObject::GetDragCursor(bool accepted, int, int)
{
    return accepted ? crDrag : crNoDrop;
}

TDragControlObject::TDragControlObject(QObject* control)
    : FControl(control)
{
}

TDragObjectData::TDragObjectData(TDragObject* object)
    : FObject(object)
{
    setData(QString::fromLatin1(Format), object->ClassName().toUtf8());
}
