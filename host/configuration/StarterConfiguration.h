#pragma once

#include <QByteArray>

// The configuration that a new user begins with: the default bindings, in the form the plug-in itself saves. The build
// writes it from the table that the plug-in's embedded default comes from; that one leaves the lists empty on purpose.
QByteArray StarterConfiguration();
