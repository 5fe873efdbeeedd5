#pragma once

#include "designer/FormLayout.h"

#include <QPainter>
#include <QPalette>
#include <QStyleOption>

// Paints the components of a form as what they are, each by the kind of drawing that its catalogue names. The colours
// are the palette's, so that a form is light or dark with the window around it.
//
// To add a kind of drawing: name it in packages/README.md, write a Draw... here, and give it a row in the table of
// ControlPainter.cpp.
class ControlPainter {
public:
    ControlPainter(QPainter& painter, const FormLayout& layout, const QPalette& palette, const PackageList& packages);

    void Paint(const LaidOut& item);
    // The frame and the title of a form, or the surface of a data module, round the client area.
    void PaintRoot(const QRect& client, int titleHeight);

    using Draw = void (ControlPainter::*)();

    void DrawBox();
    void DrawPanel();
    void DrawGroup();
    void DrawTabs();
    void DrawPage();
    void DrawToolBar();
    void DrawStatusBar();
    void DrawSplitter();
    void DrawBevel();
    void DrawShape();
    void DrawImage();
    void DrawLabel();
    void DrawEdit();
    void DrawMemo();
    void DrawButton();
    void DrawToolButton();
    void DrawCheck();
    void DrawRadio();
    void DrawRadioGroup();
    void DrawCombo();
    void DrawList();
    void DrawListView();
    void DrawGrid();
    void DrawNavigator();
    void DrawProgress();
    void DrawTrackBar();
    void DrawScrollBar();
    void DrawChart();

private:
    void DrawIcon();
    void DrawField(QRect rect);
    void DrawLines(const QRect& rect, const QStringList& lines);
    void DrawIndicator(bool radio);
    void DrawColumn(const QRect& column, const QString& title);
    QFont FontOf(const TComponent& component) const;
    // The stored colour; the other where the component has none of its own.
    QColor ColorOf(const QString& property, const QColor& otherwise) const;
    QString Caption() const;
    // What a control without text of its own shows: the field that it is bound to.
    QString TextOrField() const;
    Qt::Alignment Alignment(Qt::Alignment vertical) const;
    // An option of the style for the control that is painted now.
    template <class Option>
    Option Styled(const QRect& rect) const
    {
        Option option;
        Prepare(option, rect);
        return option;
    }
    void Prepare(QStyleOption& option, const QRect& rect) const;
    static QStyle& Style();
    void DrawText(const QRect& rect, Qt::Alignment alignment, const QString& text, int flags = Qt::TextShowMnemonic);

    QPainter& FPainter;
    const FormLayout& FLayout;
    QPalette FPalette;
    const PackageList& FPackages;
    // What is painted now.
    const TComponent* FControl = nullptr;
    const ComponentInfo* FInfo = nullptr;
    QRect FRect;
    QFont FBaseFont;
};
