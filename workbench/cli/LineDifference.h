#pragma once

#include <QByteArray>
#include <QStringList>

// The lines that two texts differ in, in order: "+" before one that only the second has, "-" before one that only the
// first has. Line ends count.
QStringList LineDifference(const QByteArray& before, const QByteArray& after);
