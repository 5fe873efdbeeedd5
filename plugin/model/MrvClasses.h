#pragma once

// The object model: the wrappers round the designer's components and the registry that holds them. One door.

#include "model/MrvCommonFieldAttr.h"
#include "model/MrvComponentList.h"
#include "model/MrvConnectionAttr.h"
#include "model/MrvCustomComponentAttr.h"
#include "model/MrvDataSetAttr.h"
#include "model/MrvDataSetList.h"
#include "model/MrvException.h"
#include "model/MrvFieldAttr.h"
#include "model/MrvFieldDefsAttr.h"
#include "model/MrvFieldPrototype.h"
#include "model/MrvFormAttr.h"
#include "model/MrvSelectionList.h"
