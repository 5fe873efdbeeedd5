#include "designer/ControlPainter.h"

#include "designer/GridColumns.h"
#include "designer/PropertyReading.h"

#include <QStyle>

#include <array>

// How controls look that show a text or take input.

using namespace PropertyReading;

void ControlPainter::DrawLabel()
{
    if (!FlagAt(*FControl, QStringLiteral("Transparent"), true))
        FPainter.fillRect(FRect, ColorOf(QStringLiteral("Color"), FPalette.color(QPalette::Window)));
    const auto layout = TextAt(*FControl, QStringLiteral("Layout"));
    const auto vertical = layout == u"tlCenter" ? Qt::AlignVCenter
        : layout == u"tlBottom"                 ? Qt::AlignBottom
                                                : Qt::AlignTop;
    const bool wraps = FlagAt(*FControl, QStringLiteral("WordWrap"));
    // The nominal metrics of the form file are narrower than some fonts: the end of the text is not cut off.
    const auto rect = wraps ? FRect : FRect.adjusted(0, -1, 0, 1);
    DrawText(rect, Alignment(vertical), TextOrField(),
        Qt::TextShowMnemonic | Qt::TextDontClip | (wraps ? int(Qt::TextWordWrap) : 0));
}

void ControlPainter::DrawField(QRect rect)
{
    FPainter.setPen(FPalette.color(QPalette::Mid));
    FPainter.setBrush(ColorOf(QStringLiteral("Color"), FPalette.color(QPalette::Base)));
    FPainter.drawRect(rect.adjusted(0, 0, -1, -1));
}

void ControlPainter::DrawEdit()
{
    DrawField(FRect);
    DrawText(FRect.adjusted(5, 0, -5, 0), Alignment(Qt::AlignVCenter), TextOrField(), 0);
}

void ControlPainter::DrawLines(const QRect& rect, const QStringList& lines)
{
    const int height = QFontMetrics(FPainter.font()).height();
    auto line = QRect(rect.x(), rect.y(), rect.width(), height);
    for (const auto& text : lines) {
        if (line.y() > rect.bottom())
            return;
        DrawText(line, Qt::AlignLeft | Qt::AlignVCenter, text, 0);
        line.translate(0, height);
    }
}

void ControlPainter::DrawMemo()
{
    DrawField(FRect);
    DrawLines(FRect.adjusted(5, 3, -4, -3), TextOrField().split(u'\n'));
    const auto bars = TextAt(*FControl, QStringLiteral("ScrollBars"));
    if (bars != u"ssVertical" && bars != u"ssBoth")
        return;
    auto option = Styled<QStyleOptionSlider>(QRect(FRect.right() - 15, FRect.y() + 1, 15, FRect.height() - 2));
    option.orientation = Qt::Vertical;
    option.maximum = 0;
    option.subControls = QStyle::SC_All;
    Style().drawComplexControl(QStyle::CC_ScrollBar, &option, &FPainter);
}

void ControlPainter::DrawButton()
{
    auto option = Styled<QStyleOptionButton>(FRect);
    option.state |= QStyle::State_Raised;
    option.text = Caption();
    if (FlagAt(*FControl, QStringLiteral("Default")))
        option.features |= QStyleOptionButton::DefaultButton;
    Style().drawControl(QStyle::CE_PushButton, &option, &FPainter);
}

void ControlPainter::DrawIndicator(bool radio)
{
    auto option = Styled<QStyleOptionButton>(FRect);
    option.text = Caption();
    const bool checked
        = FlagAt(*FControl, QStringLiteral("Checked")) || TextAt(*FControl, QStringLiteral("State")) == u"cbChecked";
    option.state |= checked ? QStyle::State_On : QStyle::State_Off;
    Style().drawControl(radio ? QStyle::CE_RadioButton : QStyle::CE_CheckBox, &option, &FPainter);
}

void ControlPainter::DrawCheck()
{
    DrawIndicator(false);
}

void ControlPainter::DrawRadio()
{
    DrawIndicator(true);
}

void ControlPainter::DrawRadioGroup()
{
    DrawGroup();
    const auto items = TextAt(*FControl, QStringLiteral("Items")).split(u'\n', Qt::SkipEmptyParts);
    if (items.isEmpty())
        return;
    const int columns = std::max(1, NumberAt(*FControl, QStringLiteral("Columns"), 1));
    const int rows = (int(items.size()) + columns - 1) / columns;
    const auto inner = FRect.adjusted(8, 16, -4, -4);
    const int chosen = NumberAt(*FControl, QStringLiteral("ItemIndex"), -1);
    for (int i = 0; i < items.size(); ++i) {
        const QRect cell(inner.x() + i / rows * inner.width() / columns, inner.y() + i % rows * inner.height() / rows,
            inner.width() / columns, inner.height() / rows);
        auto option = Styled<QStyleOptionButton>(cell);
        option.text = items[i];
        option.state |= i == chosen ? QStyle::State_On : QStyle::State_Off;
        Style().drawControl(QStyle::CE_RadioButton, &option, &FPainter);
    }
}

void ControlPainter::DrawCombo()
{
    DrawEdit();
    const QRect arrow(FRect.right() - 18, FRect.y(), 18, FRect.height());
    auto option = Styled<QStyleOption>(arrow.adjusted(4, 4, -4, -4));
    Style().drawPrimitive(QStyle::PE_IndicatorArrowDown, &option, &FPainter);
}

void ControlPainter::DrawList()
{
    DrawField(FRect);
    auto lines = TextAt(*FControl, QStringLiteral("Items"));
    if (lines.isEmpty())
        lines = TextOrField();
    DrawLines(FRect.adjusted(5, 2, -4, -2), lines.split(u'\n'));
}

void ControlPainter::DrawColumn(const QRect& column, const QString& title)
{
    auto option = Styled<QStyleOptionHeader>(QRect(column.x(), column.y(), column.width(), 20));
    option.state |= QStyle::State_Raised | QStyle::State_Horizontal;
    option.text = title;
    option.textAlignment = Qt::AlignLeft | Qt::AlignVCenter;
    option.orientation = Qt::Horizontal;
    option.position = QStyleOptionHeader::Middle;
    Style().drawControl(QStyle::CE_Header, &option, &FPainter);
    FPainter.setPen(FPalette.color(QPalette::Midlight));
    FPainter.drawLine(column.right(), column.y() + 20, column.right(), column.bottom());
}

void ControlPainter::DrawListView()
{
    DrawField(FRect);
    FPainter.setClipRect(FRect.adjusted(1, 1, -1, -1), Qt::IntersectClip);
    int left = FRect.x() + 1;
    for (const auto& column : StoredColumns(*FControl)) {
        DrawColumn(QRect(left, FRect.y() + 1, column.Width, FRect.height() - 2), column.Title);
        left += column.Width;
    }
}

void ControlPainter::DrawGrid()
{
    DrawField(FRect);
    FPainter.setClipRect(FRect.adjusted(1, 1, -1, -1), Qt::IntersectClip);
    const auto inner = FRect.adjusted(1, 1, -1, -1);
    const bool hasIndicator = !FInfo->Bindings.Source.isEmpty();
    int left = inner.x() + (hasIndicator ? 12 : 0);
    if (hasIndicator)
        DrawColumn(QRect(inner.x(), inner.y(), 12, inner.height()), {});
    for (const auto& column : GridColumns(*FControl, FInfo->Bindings.Source)) {
        if (left > inner.right())
            break;
        const int width = std::min(column.Width, inner.right() - left + 1);
        DrawColumn(QRect(left, inner.y(), width, inner.height()), column.Title);
        left += width;
    }
    FPainter.setPen(FPalette.color(QPalette::Midlight));
    for (int y = inner.y() + 38; y < inner.bottom(); y += 18)
        FPainter.drawLine(inner.x(), y, std::min(left, inner.right()), y);
}

namespace {

constexpr std::array NavigatorGlyphs { u"|\u25C0", u"\u25C0", u"\u25B6", u"\u25B6|", u"+", u"\u2212", u"\u25B2",
    u"\u2713", u"\u2715", u"\u21BB" };

}

void ControlPainter::DrawNavigator()
{
    const int count = int(NavigatorGlyphs.size());
    for (int i = 0; i < count; ++i) {
        const int left = FRect.x() + i * FRect.width() / count;
        const QRect cell(left, FRect.y(), FRect.x() + (i + 1) * FRect.width() / count - left, FRect.height());
        auto option = Styled<QStyleOptionButton>(cell);
        option.state |= QStyle::State_Raised;
        option.text = QString::fromUtf16(NavigatorGlyphs[size_t(i)]);
        Style().drawControl(QStyle::CE_PushButton, &option, &FPainter);
    }
}

void ControlPainter::DrawProgress()
{
    auto option = Styled<QStyleOptionProgressBar>(FRect);
    option.state |= QStyle::State_Horizontal;
    option.minimum = NumberAt(*FControl, QStringLiteral("Min"));
    option.maximum = std::max(option.minimum + 1, NumberAt(*FControl, QStringLiteral("Max"), 100));
    option.progress = NumberAt(*FControl, QStringLiteral("Position"));
    Style().drawControl(QStyle::CE_ProgressBar, &option, &FPainter);
}

void ControlPainter::DrawTrackBar()
{
    auto option = Styled<QStyleOptionSlider>(FRect);
    option.orientation = FRect.width() >= FRect.height() ? Qt::Horizontal : Qt::Vertical;
    if (option.orientation == Qt::Horizontal)
        option.state |= QStyle::State_Horizontal;
    option.maximum = std::max(1, NumberAt(*FControl, QStringLiteral("Max"), 10));
    option.sliderPosition = NumberAt(*FControl, QStringLiteral("Position"));
    option.subControls = QStyle::SC_SliderGroove | QStyle::SC_SliderHandle;
    Style().drawComplexControl(QStyle::CC_Slider, &option, &FPainter);
}

void ControlPainter::DrawScrollBar()
{
    auto option = Styled<QStyleOptionSlider>(FRect);
    option.orientation = FRect.width() >= FRect.height() ? Qt::Horizontal : Qt::Vertical;
    if (option.orientation == Qt::Horizontal)
        option.state |= QStyle::State_Horizontal;
    option.maximum = 90;
    option.pageStep = 10;
    option.subControls = QStyle::SC_All;
    Style().drawComplexControl(QStyle::CC_ScrollBar, &option, &FPainter);
}
