#include "visual/TShortCut.h"

#include <algorithm>
#include <array>

namespace {

// A run of virtual keys and the run of Qt's keys that it stands for.
struct KeyRun {
    int first;
    int count;
    Qt::Key key;
};

constexpr std::array<KeyRun, 22> Runs { {
    { 0x08, 1, Qt::Key_Backspace },
    { 0x09, 1, Qt::Key_Tab },
    { 0x0D, 1, Qt::Key_Return },
    { 0x1B, 1, Qt::Key_Escape },
    { 0x20, 1, Qt::Key_Space },
    { 0x21, 2, Qt::Key_PageUp },
    { 0x23, 1, Qt::Key_End },
    { 0x24, 1, Qt::Key_Home },
    { 0x25, 4, Qt::Key_Left },
    { 0x2D, 2, Qt::Key_Insert },
    { 0x30, 10, Qt::Key_0 },
    { 0x41, 26, Qt::Key_A },
    { 0x70, 24, Qt::Key_F1 },
    { 0xBA, 1, Qt::Key_Semicolon },
    { 0xBB, 1, Qt::Key_Equal },
    { 0xBC, 3, Qt::Key_Comma },
    { 0xBF, 1, Qt::Key_Slash },
    { 0xC0, 1, Qt::Key_QuoteLeft },
    { 0xDB, 3, Qt::Key_BracketLeft },
    { 0xDE, 1, Qt::Key_Apostrophe },
    { 0x6B, 1, Qt::Key_Plus },
    { 0x6D, 1, Qt::Key_Minus },
} };

// Both count these keys in the same order.
static_assert(Qt::Key_Down - Qt::Key_Left == 3 && Qt::Key_Delete - Qt::Key_Insert == 1);
static_assert(Qt::Key_PageDown - Qt::Key_PageUp == 1 && Qt::Key_Period - Qt::Key_Comma == 2);
static_assert(Qt::Key_BracketRight - Qt::Key_BracketLeft == 2 && Qt::Key_F24 - Qt::Key_F1 == 23);

}

QKeySequence ToKeySequence(TShortCut shortCut)
{
    const int code = shortCut & 0xFF;
    const auto* run = std::find_if(
        Runs.begin(), Runs.end(), [code](const KeyRun& r) { return code >= r.first && code < r.first + r.count; });
    if (run == Runs.end())
        return {};
    Qt::KeyboardModifiers held;
    held.setFlag(Qt::ShiftModifier, (shortCut & scShift) != 0);
    held.setFlag(Qt::ControlModifier, (shortCut & scCtrl) != 0);
    held.setFlag(Qt::AltModifier, (shortCut & scAlt) != 0);
    return QKeySequence(QKeyCombination(held, static_cast<Qt::Key>(run->key + code - run->first)));
}

TShortCut ToShortCut(const QKeySequence& keys)
{
    if (keys.isEmpty())
        return scNone;
    const auto key = keys[0].key();
    const auto* run = std::find_if(
        Runs.begin(), Runs.end(), [key](const KeyRun& r) { return key >= r.key && key < r.key + r.count; });
    if (run == Runs.end())
        return scNone;
    const auto held = keys[0].keyboardModifiers();
    auto shortCut = static_cast<TShortCut>(run->first + key - run->key);
    shortCut |= held.testFlag(Qt::ShiftModifier) ? scShift : scNone;
    shortCut |= held.testFlag(Qt::ControlModifier) ? scCtrl : scNone;
    shortCut |= held.testFlag(Qt::AltModifier) ? scAlt : scNone;
    return shortCut;
}

QString ShortCutToText(TShortCut shortCut)
{
    return ToKeySequence(shortCut).toString(QKeySequence::NativeText);
}
