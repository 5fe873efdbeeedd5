#pragma once

#include "data/SqlDataAccess.h"
#include "rtl/Dialogs.h"
#include "rtl/Guard.h"

class QWidget;

// How the workbench asks a person: handlers for the questions of the platform and of the data access, with boxes over
// that window. The window outlives them.
namespace Questions {

MessageDlgHandler MessageBox(QWidget& window);
ExceptionHandler ExceptionBox(QWidget& window);
SqlDataAccess::Login Login(QWidget& window);

}
