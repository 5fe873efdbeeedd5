#pragma once

#include "classes/Controls.h"
#include "design/IDesigner.h"

class TDataSet;
class TField;

// The registry of data controls: which control a field gets, and how it is made.

// Makes the control for the field on the parent (a TWinControl, or the root for nil), bound to the field's data source,
// which is found or made by the rule of the model: the first TDataSource of the dataset on the dataset's own form, else
// on the designer's root, else a new one at x + 18, y + 23, 30 by 30. With a label the label stands at x, y with the
// field's display name, and the control below it by the label's height + 3. Of position -1, -1 the designer chooses.
// Gives the control. Raises EClassNotFound as "Visual control %s is not installed in IDE" for a class that is not
// registered; what was made before a failure is the caller's to roll back.
TControl* CreateFieldControl(const InterfacePtr<IDesigner>& designer, TField* field, const QString& controlClassName,
    TComponent* parent, int x, int y, bool withLabel);

// The class of the control for a field of that dataset: the named one, or for an empty name the one registered for the
// field's class. Raises EClassNotFound as above. Leaves the dataset's Active alone.
TClass CreateControlClass(TDataSet* dataSet, const QString& fieldName, const QString& controlClassName);

// Notes that fields of a class get controls of a class. A class that is no field class is noted and never asked for.
void RegisterFieldControl(TClass fieldClass, const QString& controlClassName);
void RegisterFieldControl(const QString& fieldClassName, const QString& controlClassName);

// Writes an object property whose declared class is `propertyClass` or an ancestor of it; nothing happens when the
// property does not exist or is of another class.
void SetClassProp(TPersistent* instance, const QString& name, TClass propertyClass, TPersistent* value);

// Texts of the platform.
QString SDSLinkForms(); // takes the two form names
QString SCantAddToFrame();
QString SCantDeleteAncestor();
QString SFKInternalCalc();
QString SFKAggregate();
QString SListIndexError(); // takes the index
