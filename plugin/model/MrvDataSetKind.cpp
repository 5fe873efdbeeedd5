#include "model/MrvDataSetKind.h"

#include "data/TCustomZASQL.h"
#include "data/TDataSet.h"

bool IsDataSetKind(const TPersistent* object)
{
    return object
        && (object->InheritsFrom(TDataSet::Class()) || object->InheritsFrom(TCustomZASQL::Class())
            || object->InheritsFrom(TZAScript::Class()));
}
