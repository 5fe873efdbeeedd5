#pragma once

#include "visual/TCanvas.h"

// A canvas on the surface that the windows stand on. On a platform where no program may draw on the screen that is the
// surface of the popup window itself, which its frame is painted on: the painter given, from the first drawing until
// FreeHandle, after which it is as it was.
class TDesktopCanvas : public TCanvas {
public:
    explicit TDesktopCanvas(QPainter& desktop);
    ~TDesktopCanvas() override;

    void FreeHandle();
    // Lets (0, 0) be this point of the surface.
    void SetOrigin(int x, int y);

protected:
    void CreateHandle() override;

private:
    QPainter& FDesktop;
    QPainter* FDC = nullptr;
};
