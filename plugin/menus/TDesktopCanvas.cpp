#include "menus/TDesktopCanvas.h"

#include <QPainter>

TDesktopCanvas::TDesktopCanvas(QPainter& desktop)
    : FDesktop(desktop)
{
}

TDesktopCanvas::~TDesktopCanvas()
{
    FreeHandle();
}

void TDesktopCanvas::CreateHandle()
{
    if (FDC == nullptr) {
        FDC = &FDesktop;
        FDC->save();
    }
    SetHandle(FDC);
}

void TDesktopCanvas::FreeHandle()
{
    if (FDC == nullptr)
        return;
    SetHandle(nullptr);
    FDC->restore();
    FDC = nullptr;
}

void TDesktopCanvas::SetOrigin(int x, int y)
{
    if (auto* painter = Handle(); painter != nullptr)
        painter->translate(x, y);
}
