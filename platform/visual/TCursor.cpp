#include "visual/TCursor.h"

#include <algorithm>
#include <array>

namespace {

struct Shape {
    TCursor cursor;
    Qt::CursorShape shape;
};

constexpr std::array<Shape, 11> Shapes { {
    { crCross, Qt::CrossCursor },
    { crIBeam, Qt::IBeamCursor },
    { crHourGlass, Qt::WaitCursor },
    { crDrag, Qt::DragMoveCursor },
    { crNoDrop, Qt::ForbiddenCursor },
    { crHSplit, Qt::SplitHCursor },
    { crVSplit, Qt::SplitVCursor },
    { crNo, Qt::ForbiddenCursor },
    { crHelp, Qt::WhatsThisCursor },
    { crHandPoint, Qt::PointingHandCursor },
    { crSizeAll, Qt::SizeAllCursor },
} };

}

QCursor TScreen::Cursors(TCursor cursor)
{
    const auto* found
        = std::find_if(Shapes.begin(), Shapes.end(), [cursor](const Shape& shape) { return shape.cursor == cursor; });
    return found == Shapes.end() ? QCursor(Qt::ArrowCursor) : QCursor(found->shape);
}
