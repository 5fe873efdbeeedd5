#pragma once

#include "classes/TClass.h"
#include "rtl/InterfacePtr.h"

#include <QString>

// An object as a selection list holds it: a live persistent, held weakly.
class IDesignObject : public IInterface {
public:
    static constexpr TGUID IID = Guid("{B1648433-D671-4D5E-B49F-26740D4EB361}");
    // Nil once the object is gone.
    virtual TPersistent* GetObject() = 0;
};

// A list of objects for selecting. Implemented by the host (CreateSelectionList) and by plug-ins.
class IDesignerSelections : public IInterface {
public:
    static constexpr TGUID IID = Guid("{7ED7BF30-E349-11D3-AB4A-00C04FB17A72}");
    // Gives the position.
    virtual int Add(TPersistent* item) = 0;
    // True only for this very object.
    virtual bool Equals(IDesignerSelections* other) = 0;
    // Nil for an object that is gone.
    virtual TPersistent* Get(int index) = 0;
    virtual int GetCount() = 0;
    virtual InterfacePtr<IDesignObject> GetDesignObject(int index) = 0;
};

// The designer of one form or data module: the way to change what is designed. A facade of the host: it stays valid
// until the process ends, and answers nil once its form is closed.
class IDesigner : public IInterface {
public:
    static constexpr TGUID IID = Guid("{93F3FCBC-968E-45A9-9641-609E8FB3AC60}");

    // Brings the designer to the front and makes it the active one.
    virtual void Activate() = 0;
    // Marks the form changed and sends ItemsModified to every design notification before it returns.
    virtual void Modified() = 0;
    // Makes a dormant form live again; nothing happens to a live one.
    virtual void Resurrect() = 0;

    // Appends the selected objects to the list.
    virtual void GetSelections(const InterfacePtr<IDesignerSelections>& list) = 0;
    // Replaces the selection and sends SelectionChanged. Objects that are not the designer's own are held weakly.
    virtual void SetSelections(const InterfacePtr<IDesignerSelections>& list) = 0;
    // Selects that one object.
    virtual void SelectComponent(TPersistent* instance) = 0;
    virtual void ClearSelection() = 0;

    // A component that the root owns, or the root by its name, without regard to case; nil.
    virtual TComponent* GetComponent(const QString& name) = 0;
    // The form, frame or data module; nil after closing and while dormant.
    virtual TComponent* GetRoot() = 0;
    // Makes a component on the form, with the next free name of its class (TDBEdit gives DBEdit1), in the form, the
    // form file and the unit. `parent` is the control that is to hold it; nil is the root. A position of -1 is the
    // designer's choice, a size of 0 the class's own. The class is taken from the form's own class group by its name.
    // Raises when the class cannot be made; nothing is left then.
    virtual TComponent* CreateComponent(
        TClass componentClass, TComponent* parent, int left, int top, int width, int height)
        = 0;
    // The designer of the form that this one inherits from, opened if need be; nil for a form that inherits nothing of
    // the project's.
    virtual InterfacePtr<IDesigner> GetAncestorDesigner() = 0;

    // The files of the module: unit, form and project. Empty where there is none.
    virtual void ModuleFileNames(QString& unitName, QString& formName, QString& projectName) = 0;

    // Whether the unit of this form uses the unit that the component's form is declared in. True for the own root and
    // what it owns.
    virtual bool IsComponentLinkable(TComponent* component) = 0;
    // Adds the uses reference that is missing.
    virtual void MakeComponentLinkable(TComponent* component) = 0;
};

// What the designers tell. Callbacks come on the main thread, synchronously; exceptions must not leave them.
class IDesignNotification : public IInterface {
public:
    static constexpr TGUID IID = Guid("{E8C9F739-5601-4ADD-9D95-594132D4CEFD}");
    // The item is going; it is still whole. The designer's selection has shrunk already.
    virtual void ItemDeleted(const InterfacePtr<IDesigner>& designer, TPersistent* item) = 0;
    virtual void ItemInserted(const InterfacePtr<IDesigner>& designer, TPersistent* item) = 0;
    // Something of the selected objects changed.
    virtual void ItemsModified(const InterfacePtr<IDesigner>& designer) = 0;
    virtual void SelectionChanged(
        const InterfacePtr<IDesigner>& designer, const InterfacePtr<IDesignerSelections>& selection)
        = 0;
    virtual void DesignerOpened(const InterfacePtr<IDesigner>& designer, bool resurrecting) = 0;
    virtual void DesignerClosed(const InterfacePtr<IDesigner>& designer, bool goingDormant) = 0;
};
