#include "app/ProjectFiles.h"

#include "services/Host.h"
#include "services/Module.h"
#include "services/Project.h"

#include <QContextMenuEvent>
#include <QFileInfo>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QSet>

namespace {

enum Role { FileRole = Qt::UserRole, ProjectRole, IsProjectRole };

// The form's name as it is now, while it is open.
QString TextOf(const ModuleDescription& module, const Module* open)
{
    const auto name = QFileInfo(module.FileName).fileName();
    const auto form = open && open->HasDesigner() ? open->FormName() : module.FormName;
    return form.isEmpty() ? name : QStringLiteral("%1 (%2)").arg(form, name);
}

}

ProjectFiles::ProjectFiles(QWidget* parent)
    : QTreeWidget(parent)
{
    setObjectName(QStringLiteral("ProjectFiles"));
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setAccessibleName(tr("Files of the projects"));
    connect(this, &QTreeWidget::itemDoubleClicked, this, [this](const QTreeWidgetItem* item) { OpenItem(item); });
}

void ProjectFiles::OpenItem(const QTreeWidgetItem* item)
{
    if (item && !item->data(0, IsProjectRole).toBool())
        Q_EMIT OpenWanted(item->data(0, FileRole).toString(), item->data(0, ProjectRole).toString());
}

void ProjectFiles::AddProject(const Host& host, const Project& project)
{
    const auto& description = project.Description();
    auto* top = new QTreeWidgetItem(this, { QFileInfo(description.FileName).fileName() });
    top->setData(0, ProjectRole, description.FileName);
    top->setData(0, IsProjectRole, true);
    top->setToolTip(0, QStringLiteral("%1\n%2").arg(description.FileName, description.Personality));
    auto font = top->font(0);
    font.setBold(&project == host.ActiveProject());
    top->setFont(0, font);
    for (const auto& module : description.Modules) {
        const auto* open = host.FindOpenModule(module.FileName);
        auto* item = new QTreeWidgetItem(top, { TextOf(module, open) });
        item->setData(0, FileRole, module.FileName);
        item->setData(0, ProjectRole, description.FileName);
        item->setToolTip(0, module.Exists ? module.FileName : tr("%1 is missing").arg(module.FileName));
        item->setDisabled(!module.Exists && !module.HasForm());
        auto itemFont = item->font(0);
        itemFont.setItalic(!open);
        item->setFont(0, itemFont);
    }
}

void ProjectFiles::Show(const Host& host)
{
    QString shown;
    for (auto* project : host.Projects())
        shown += project->GetFileName() + QChar(project == host.ActiveProject() ? u'*' : u'\n');
    for (auto* module : host.Modules())
        shown += module->UnitFile() + u'\t' + module->FormName() + u'\n';
    if (shown == FShown)
        return;
    FShown = shown;
    QSet<QString> folded;
    for (int i = 0; i < topLevelItemCount(); ++i)
        if (!topLevelItem(i)->isExpanded())
            folded << topLevelItem(i)->data(0, ProjectRole).toString();
    clear();
    for (const auto* project : host.Projects())
        AddProject(host, *project);
    for (int i = 0; i < topLevelItemCount(); ++i)
        topLevelItem(i)->setExpanded(!folded.contains(topLevelItem(i)->data(0, ProjectRole).toString()));
}

void ProjectFiles::contextMenuEvent(QContextMenuEvent* event)
{
    const auto* item = itemAt(event->pos());
    if (!item)
        return;
    const auto project = item->data(0, ProjectRole).toString();
    const auto file = item->data(0, FileRole).toString();
    QMenu menu(this);
    if (item->data(0, IsProjectRole).toBool()) {
        menu.addAction(tr("&Activate"), this, [this, project] { Q_EMIT ActivateWanted(project); });
        menu.addAction(tr("&Close"), this, [this, project] { Q_EMIT CloseWanted(project); });
    } else {
        menu.addAction(tr("&Open"), this, [this, file, project] { Q_EMIT OpenWanted(file, project); });
    }
    menu.exec(event->globalPos());
}

void ProjectFiles::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        OpenItem(currentItem());
    else
        QTreeWidget::keyPressEvent(event);
}
