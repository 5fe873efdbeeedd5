#pragma once

#include "cli/ProjectVerb.h"

class Designer;
class Module;

// morvane drop PROJECT --form FORM --item FORM.DATASET[.FIELD] ...: what a drag from the tree onto a form would do.
class DropVerb : public ProjectVerb {
public:
    DropVerb();

protected:
    ExitStatus Run() override;

private:
    Module* OpenForm(const QString& formName);
    // The node of an item, below its dataset's; nil, with the reason told.
    TTreeNode* FindItem(const QString& item);
    TTreeNode* FindField(TTreeNode* dataSet, const QString& field);
    bool SelectItems(QList<TTreeNode*>& nodes);
    bool ChooseControl(const QList<TTreeNode*>& nodes);
    QPoint Position(const Designer& designer) const;
    bool DropOn(Module& module);
    bool TellAndSave();
};
