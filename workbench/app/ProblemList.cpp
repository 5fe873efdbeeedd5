#include "app/ProblemList.h"

#include <QFileInfo>
#include <QHeaderView>
#include <QStyle>

namespace {

enum Column { TextColumn, FileColumn, PlaceColumn };
enum Role { FileRole = Qt::UserRole, LineRole, ColumnRole };

}

ProblemList::ProblemList(QWidget* parent)
    : QTreeWidget(parent)
{
    setObjectName(QStringLiteral("ProblemList"));
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setAccessibleName(tr("Problems in the files"));
    setHeaderLabels({ tr("Problem"), tr("File"), tr("Line:Column") });
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(TextColumn, QHeaderView::Stretch);
    connect(this, &QTreeWidget::itemDoubleClicked, this, [this](const QTreeWidgetItem* item) {
        Q_EMIT PlaceWanted(
            item->data(0, FileRole).toString(), item->data(0, LineRole).toInt(), item->data(0, ColumnRole).toInt());
    });
}

void ProblemList::Add(const Problem& problem)
{
    const auto place = problem.Line > 0 ? QStringLiteral("%1:%2").arg(problem.Line).arg(problem.Column) : QString();
    auto* item = new QTreeWidgetItem(this, { problem.Text, QFileInfo(problem.FileName).fileName(), place });
    item->setIcon(TextColumn,
        style()->standardIcon(
            problem.Severity == Problem::Error ? QStyle::SP_MessageBoxCritical : QStyle::SP_MessageBoxWarning));
    item->setData(0, FileRole, problem.FileName);
    item->setData(0, LineRole, problem.Line);
    item->setData(0, ColumnRole, problem.Column);
    item->setToolTip(TextColumn, problem.ToString());
    item->setToolTip(FileColumn, problem.FileName);
}
