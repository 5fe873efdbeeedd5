#pragma once

#include <QPoint>
#include <QRect>

// A point of the window library.
using TPoint = QPoint;

// A rectangle whose right and bottom edges are the first coordinates outside of it.
struct TRect {
    int Left = 0;
    int Top = 0;
    int Right = 0;
    int Bottom = 0;

    TRect() = default;
    TRect(int left, int top, int right, int bottom)
        : Left(left)
        , Top(top)
        , Right(right)
        , Bottom(bottom)
    {
    }
    explicit TRect(const QRect& rect)
        : TRect(rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height())
    {
    }

    bool IsEmpty() const { return Right <= Left || Bottom <= Top; }
    QRect ToQRect() const { return { Left, Top, Right - Left, Bottom - Top }; }
    void Offset(int dx, int dy) { *this = TRect(Left + dx, Top + dy, Right + dx, Bottom + dy); }
    // Moves every edge outwards, inwards with negative numbers.
    void Inflate(int dx, int dy) { *this = TRect(Left - dx, Top - dy, Right + dx, Bottom + dy); }

    friend bool operator==(const TRect&, const TRect&) = default;
};
