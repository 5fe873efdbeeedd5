#pragma once

#include "data/TDataSet.h"

class QMenu;

// The host's side of making and deleting persistent fields where their form stands in a designer. The designer that the
// owner's DesignerHook() belongs to implements it beside IDesignerHook; a hook without it, or none, has the fields made
// and deleted plainly.
class IFieldDesigner {
public:
    // Makes a field of that class on the dataset's owner, with the designer's state and notifications: state, owner,
    // then `prepare`, which sets the dataset or the parent field, FieldName and what the definition says, then the
    // name, which is free. Gives the field. Raises when it cannot be made; nothing is left then.
    virtual TField* CreateField(
        TDataSet* dataSet, TClass fieldClass, const QString& name, const std::function<void(TField*)>& prepare)
        = 0;
    // Deletes the field with everything that a deletion in the designer brings.
    virtual void DeleteField(TField* field) = 0;

protected:
    ~IFieldDesigner() = default;
};

// What edits a dataset's fields at design time. While it lives it is the dataset's Designer(); its maker owns it. A
// dataset that goes first leaves it without one.
class TDataSetDesigner {
public:
    // Takes the place of a designer that was there.
    explicit TDataSetDesigner(TDataSet* dataSet);
    TDataSetDesigner(const TDataSetDesigner&) = delete;
    TDataSetDesigner& operator=(const TDataSetDesigner&) = delete;
    virtual ~TDataSetDesigner();

    // Nil once the dataset is gone.
    TDataSet* DataSet() const { return FDataSet; }
    // Round a change of the fields: an open dataset has no rows in between. EndDesign opens it again, and raises what
    // Open raises; the dataset is then closed.
    virtual void BeginDesign();
    virtual void EndDesign();
    // Called for everything that happens to the dataset; the base class does nothing.
    virtual void DataEvent(TDataEvent event, qintptr info);

private:
    friend class TDataSet;
    TDataSet* FDataSet;
    bool FHadRows = false;
};

// The designer that a fields editor attaches to a dataset.
class TDSDesigner : public TDataSetDesigner {
public:
    using TDataSetDesigner::TDataSetDesigner;

    // Makes a persistent field of the definition at that path (see TFieldDefList), with its children where it has any
    // and within its parent field, which is made where it is missing. It is named for the dataset and the path: Title
    // of qryBooks is qryBooksTitle, with a number behind it where that name is taken. `origin` is its Origin; may be
    // empty.
    //
    // Raises EDatabaseError when there is no such definition, when no field is made of its type, or when the field is
    // there already.
    virtual TField* DoCreateField(const QString& fieldName, const QString& origin);
    // Deletes a persistent field, through the designer of its form where it stands in one.
    virtual void DeleteField(TField* field);

    // Brackets, for subclasses to hook: DoCreateField calls the first pair round its work, TFieldDefs::Update the
    // second on the designer of its dataset; the end comes after a failure too. The base class does nothing.
    virtual void BeginCreateFields() { }
    virtual void EndCreateFields() { }
    virtual void BeginUpdateFieldDefs() { }
    virtual void EndUpdateFieldDefs() { }

    // The class of control that the field gets where none is named; CreateControlClass asks. Empty where the registry
    // of data controls decides.
    virtual QString GetControlClass(TField* field) const;
    virtual bool SupportsAggregates() const;
    virtual bool SupportsInternalCalc() const;
    // Adds to the menu of a fields editor, and brings it up to date before it shows. The base class adds nothing.
    virtual void InitializeMenu(QMenu* menu);
    virtual void UpdateMenus(QMenu* menu);

private:
    TField* CreateFor(TFieldDef& def, const QString& path, TObjectField* parent, const QString& origin);
    void CreateChildren(TFieldDef& def, const QString& path, TObjectField* parent);
    TObjectField* NeedParent(const TFieldDef& def, const QString& path);
};

// A name for a persistent field of the dataset: its name, then the path without what no identifier may hold, then a
// number from 2 where the name is taken on its owner.
QString UniqueFieldName(const TDataSet& dataSet, const QString& path);
