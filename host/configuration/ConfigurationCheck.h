#pragma once

#include "files/Problem.h"

#include <QByteArray>

// What is wrong with the content of a configuration file, in the order of the file. An Error is what keeps the plug-in
// from loading it or its tool window from opening; a Warning is what it does not notice. An entry that no XML reader
// takes is named with its control and its place among the bindings.
Problems CheckConfiguration(const QByteArray& content, const QString& fileName);

// Whether the content offers a control for the personality of native projects ("prVCL"), in its dataset section or a
// field group. False for content that does not load.
bool OffersControls(const QByteArray& content);
