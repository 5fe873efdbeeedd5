#include "designer/DataKinds.h"

#include "classes/TPersistent.h"

namespace DataKinds {

bool IsField(const TPersistent& object)
{
    return object.ClassType().InheritsFromNamed(u"TField");
}

bool IsDataComponent(const TPersistent& object)
{
    const auto aClass = object.ClassType();
    return aClass.InheritsFromNamed(u"TDataSet") || aClass.InheritsFromNamed(u"TCustomZASQL")
        || aClass.InheritsFromNamed(u"TZAScript") || aClass.InheritsFromNamed(u"TCustomZAConnection");
}

}
