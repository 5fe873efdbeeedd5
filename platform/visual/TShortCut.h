#pragma once

#include <QKeySequence>
#include <QString>

#include <cstdint>

// A short cut as the window library numbers it: a virtual key, with bits for the keys held down. 0 is none.
using TShortCut = std::uint16_t;

inline constexpr TShortCut scShift = 0x2000;
inline constexpr TShortCut scCtrl = 0x4000;
inline constexpr TShortCut scAlt = 0x8000;
inline constexpr TShortCut scNone = 0;

// The same keys for Qt; an empty sequence for 0 and for a key that is not known.
QKeySequence ToKeySequence(TShortCut shortCut);
// The number of the first key of the sequence; 0 if there is none for it.
TShortCut ToShortCut(const QKeySequence& keys);
// The text a menu shows, such as "Ctrl+C"; empty for 0.
QString ShortCutToText(TShortCut shortCut);
