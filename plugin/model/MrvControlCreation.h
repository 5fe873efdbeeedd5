#pragma once

#include "classes/Controls.h"
#include "design/IDesigner.h"

#include <QSize>

class TDataSource;

// What the wrappers share when they create bound controls.

// Whether the designer's form may refer to what `owner` holds: asks the user when its unit does not use the owner's,
// and adds that reference for `instance` when the answer is yes.
bool ConfirmLink(const InterfacePtr<IDesigner>& designer, TComponent* owner, TComponent* instance);

// The class of that name in the class group of the designer's form, so that no control of another library lands on it;
// its package is loaded first. Raises EClassNotFound, in words for the user.
TClass ControlClass(const InterfacePtr<IDesigner>& designer, const QString& className);

// Width and height that the class gives a new control.
QSize ControlSize(TClass controlClass);

// Binds controls that hold their binding in an object of their own: those that publish "DataBinding".
void SupportDevExpressEditors(TControl* control, TDataSource* source, const QString& fieldName);

// While it lives, classes are found in the class group of the designer's form.
class TClassGroupScope {
public:
    explicit TClassGroupScope(const InterfacePtr<IDesigner>& designer);
    TClassGroupScope(const TClassGroupScope&) = delete;
    TClassGroupScope& operator=(const TClassGroupScope&) = delete;
    ~TClassGroupScope();

private:
    QString FOld;
    bool FChanged = false;
};
