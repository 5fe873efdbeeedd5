#pragma once

#include "visual/TBitmap.h"

#include <QIcon>
#include <QList>
#include <QObject>

class QPainter;

enum TDrawingStyle { dsFocus, dsSelected, dsNormal, dsTransparent };

// Pictures of one size, found by number. Menus, trees and tool bars hold a plain pointer to a list that belongs to a
// form; they watch Changed to draw anew and QObject::destroyed to let go of it.
class TImageList : public QObject {
    Q_OBJECT
public:
    explicit TImageList(QObject* owner = nullptr);
    // Pictures of this size in pixels; both at least 1.
    TImageList(int width, int height, QObject* owner = nullptr);

    int Count() const { return static_cast<int>(FImages.size()); }
    int Width() const { return FWidth; }
    int Height() const { return FHeight; }
    // Another size drops the pictures.
    void SetSize(int width, int height);

    // What a picture is drawn on where it is see-through; clNone, the default, leaves the ground visible.
    TColor BkColor() const { return FBkColor; }
    void SetBkColor(TColor color);
    // dsTransparent ignores BkColor.
    TDrawingStyle DrawingStyle() const { return FDrawingStyle; }
    void SetDrawingStyle(TDrawingStyle style);

    // Appends the picture and returns its number, -1 for an empty one. A bitmap wider than the list holds several
    // pictures side by side; the number of the first is returned. A smaller one stands in the upper left corner.
    // `mask` is black where the picture shows; nil when it shows everywhere.
    virtual int Add(const TBitmap& image, const TBitmap* mask = nullptr);
    // The same; pixels of `maskColor` are see-through. A picture with an alpha channel keeps that instead.
    virtual int AddMasked(const TBitmap& image, TColor maskColor);
    // Numbers behind `index` close up. One out of range does nothing.
    virtual void Delete(int index);
    virtual void Clear();
    // Takes the size and the pictures of another list.
    virtual void Assign(const TImageList& source);

    // Draws one picture with its upper left corner at (x, y). A number out of range draws nothing.
    void Draw(QPainter& painter, int x, int y, int index) const;
    // Fills `image` with a picture on white; false, and `image` left alone, for a number out of range.
    bool GetBitmap(int index, TBitmap& image) const;
    // The picture with its alpha; null for a number out of range.
    QImage Image(int index) const { return FImages.value(index); }
    QIcon Icon(int index) const;

Q_SIGNALS:
    void Changed();

private:
    int Append(const QImage& picture);

    QList<QImage> FImages;
    int FWidth = 16;
    int FHeight = 16;
    TColor FBkColor = clNone;
    TDrawingStyle FDrawingStyle = dsNormal;
};
