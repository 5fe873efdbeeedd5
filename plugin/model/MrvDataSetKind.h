#pragma once

class TPersistent;

// What counts as an entry of the dataset list: a TDataSet, TCustomZASQL or TZAScript. Nil does not.
bool IsDataSetKind(const TPersistent* object);
