#pragma once

#include <QCursor>

// A mouse cursor by number: 0 is the window's own, the system's stand below it.
using TCursor = short;

inline constexpr TCursor crDefault = 0;
inline constexpr TCursor crArrow = -2;
inline constexpr TCursor crCross = -3;
inline constexpr TCursor crIBeam = -4;
inline constexpr TCursor crHourGlass = -11;
inline constexpr TCursor crDrag = -12;
inline constexpr TCursor crNoDrop = -13;
inline constexpr TCursor crHSplit = -14;
inline constexpr TCursor crVSplit = -15;
inline constexpr TCursor crNo = -18;
inline constexpr TCursor crHelp = -20;
inline constexpr TCursor crHandPoint = -21;
inline constexpr TCursor crSizeAll = -22;

// The cursors of the screen; a number that is not known gives the arrow.
class TScreen {
public:
    static QCursor Cursors(TCursor cursor);
};
