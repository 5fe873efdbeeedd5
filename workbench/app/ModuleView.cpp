#include "app/ModuleView.h"

#include "designer/FormSurface.h"
#include "services/Host.h"
#include "services/Module.h"

#include <QFile>
#include <QFileInfo>
#include <QFontDatabase>
#include <QPlainTextEdit>
#include <QScrollArea>
#include <QTextBlock>

ModuleView::ModuleView(Host& host, const PackageList& packages, Module& module, QWidget* parent)
    : QTabWidget(parent)
    , FModule(module)
    , FSource(new QPlainTextEdit)
{
    setTabPosition(QTabWidget::South);
    setDocumentMode(true);
    if (module.HasDesigner()) {
        auto* area = new QScrollArea;
        area->setFrameShape(QFrame::NoFrame);
        FSurface = new FormSurface(host, packages, module);
        area->setWidget(FSurface);
        area->setWidgetResizable(true);
        addTab(area, tr("Form"));
    }
    FSource->setReadOnly(true);
    FSource->setLineWrapMode(QPlainTextEdit::NoWrap);
    FSource->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    FSource->setAccessibleName(tr("Text of the unit"));
    addTab(FSource, tr("Unit"));
    connect(this, &QTabWidget::currentChanged, this, [this] { Refresh(); });
    Refresh();
}

QString ModuleView::Title() const
{
    const auto name = FModule.FormName().isEmpty() ? QFileInfo(FModule.UnitFile()).fileName() : FModule.FormName();
    return FModule.IsModified() ? name + u'*' : name;
}

bool ModuleView::ShowsForm() const
{
    return FSurface && currentIndex() == 0;
}

void ModuleView::ShowForm()
{
    if (!FSurface)
        return;
    setCurrentIndex(0);
    FSurface->setFocus(Qt::OtherFocusReason);
}

void ModuleView::ShowSource(int line, int column)
{
    setCurrentWidget(FSource);
    FSource->setFocus(Qt::OtherFocusReason);
    if (line < 1)
        return;
    auto cursor = FSource->textCursor();
    cursor.setPosition(FSource->document()->findBlockByNumber(line - 1).position());
    cursor.movePosition(QTextCursor::Right, QTextCursor::MoveAnchor, std::max(0, column - 1));
    FSource->setTextCursor(cursor);
    FSource->centerCursor();
}

// A unit that cannot be followed is shown as it is on disk.
void ModuleView::FillSource()
{
    QByteArray bytes;
    if (const auto* unit = FModule.Unit())
        bytes = unit->Files().value(0).Bytes;
    else if (QFile file(FModule.UnitFile()); file.open(QIODevice::ReadOnly))
        bytes = file.readAll();
    if (bytes == FShownBytes)
        return;
    FShownBytes = bytes;
    FSource->setPlainText(QString::fromUtf8(bytes));
}

void ModuleView::Refresh()
{
    if (!FModule.IsOpen())
        return;
    if (!ShowsForm())
        FillSource();
    if (FSurface)
        FSurface->Invalidate();
}
