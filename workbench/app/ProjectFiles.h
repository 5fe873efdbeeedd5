#pragma once

#include <QTreeWidget>

class Host;
class Project;

// The files of the open projects: each project with its modules, the active one in bold. A double click opens a module;
// a project's menu makes it the active one or closes it.
class ProjectFiles : public QTreeWidget {
    Q_OBJECT
public:
    explicit ProjectFiles(QWidget* parent = nullptr);

    // Shows what is open now; what a person folded stays folded.
    void Show(const Host& host);

Q_SIGNALS:
    void OpenWanted(const QString& fileName, const QString& projectFile);
    void ActivateWanted(const QString& projectFile);
    void CloseWanted(const QString& projectFile);

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void AddProject(const Host& host, const Project& project);
    void OpenItem(const QTreeWidgetItem* item);
    QString FShown;
};
