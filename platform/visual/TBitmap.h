#pragma once

#include "visual/TColor.h"

#include <QImage>
#include <QString>

// What a bitmap handle is here: the implicitly shared image. Holding one keeps the pixels, as owning a handle does.
using HBITMAP = QImage;

// Anything that can be drawn as a picture. Held by value or by reference, never owned through this base.
class TGraphic {
public:
    virtual ~TGraphic() = default;

    virtual bool Empty() const = 0;
    virtual int Width() const = 0;
    virtual int Height() const = 0;
    // The picture as pixels; a null image when it is empty.
    virtual QImage ToImage() const = 0;

protected:
    TGraphic() = default;
    TGraphic(const TGraphic&) = default;
    TGraphic& operator=(const TGraphic&) = default;
};

enum TTransparentMode { tmAuto, tmFixed };
enum TPixelFormat { pf1bit, pf8bit, pf24bit, pf32bit };

// A bitmap: a QImage and which of its colours stands for nothing. A value: copies share their pixels until one of
// them is written to.
class TBitmap : public TGraphic {
public:
    TBitmap() = default;
    // Takes the image as it is; not transparent.
    explicit TBitmap(const QImage& image);
    // A white bitmap of this size. A width or height of 0 or less gives an empty one.
    TBitmap(int width, int height, TPixelFormat format = pf32bit);

    bool Empty() const override { return FImage.isNull(); }
    int Width() const override { return FImage.width(); }
    int Height() const override { return FImage.height(); }
    QImage ToImage() const override { return FImage; }

    // The pixels, to read or to draw on; the caller may give QPainter a pointer to it.
    const QImage& Image() const { return FImage; }
    QImage& Image() { return FImage; }
    void SetImage(const QImage& image) { FImage = image; }

    // Makes a white bitmap of this size in the present format.
    void SetSize(int width, int height);
    TPixelFormat PixelFormat() const;
    void SetPixelFormat(TPixelFormat format);
    bool Monochrome() const { return PixelFormat() == pf1bit; }
    void FreeImage() { FImage = QImage(); }

    // Whether an operation has changed the pixels; set by operations, reset by whoever cares.
    bool Modified() const { return FModified; }
    void SetModified(bool modified) { FModified = modified; }

    bool Transparent() const { return FTransparent; }
    void SetTransparent(bool transparent) { FTransparent = transparent; }
    TTransparentMode TransparentMode() const { return FTransparentMode; }
    void SetTransparentMode(TTransparentMode mode) { FTransparentMode = mode; }
    // The colour that stands for nothing: in automatic mode that of the lowest pixel on the left, otherwise the one
    // set. clNone of an empty bitmap.
    TColor TransparentColor() const;
    // Also switches to the fixed mode; clDefault switches back to the automatic one.
    void SetTransparentColor(TColor color);

    // Colour of a pixel; clNone outside.
    TColor Pixel(int x, int y) const;
    void SetPixel(int x, int y, TColor color);

    // The pixels with the transparent colour made see-through, if the bitmap is transparent and has no alpha
    // channel of its own; in any case in Format_ARGB32.
    QImage Masked() const;
    // The same for a colour given: pixels equal to it become see-through. clNone leaves all as they are.
    static QImage Masked(const QImage& image, TColor color);

    // Loads the picture `name` from `module`, the folder of a module's resources (":/Morvane290"); an extension need
    // not be given. False, with the bitmap left as it was, if there is none or it cannot be read.
    bool LoadFromResourceName(const QString& module, const QString& name);

    HBITMAP Handle() const { return FImage; }
    void SetHandle(const HBITMAP& handle) { FImage = handle; }
    // Gives the pixels away; the bitmap is empty afterwards.
    HBITMAP ReleaseHandle();

private:
    QImage FImage;
    bool FModified = false;
    bool FTransparent = false;
    TTransparentMode FTransparentMode = tmAuto;
    TColor FTransparentColor = clDefault;
};
