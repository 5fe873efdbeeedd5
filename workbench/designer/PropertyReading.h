#pragma once

#include "classes/TPersistent.h"

// Reads published properties by path ("Position.X") for drawing. What is not there reads as nothing; nothing is raised.
namespace PropertyReading {

QVariant ValueAt(const TPersistent& object, const QString& path);
// The value that the object keeps for a property of a catalogue; nothing while it has the class's own.
QVariant StoredAt(const TPersistent& object, const QString& path);
// A text, or the lines of a property that holds lines, closed with line feeds.
QString TextAt(const TPersistent& object, const QString& path);
int NumberAt(const TPersistent& object, const QString& path, int otherwise = 0);
bool FlagAt(const TPersistent& object, const QString& path, bool otherwise = false);
TPersistent* ObjectAt(const TPersistent& object, const QString& path);
// Writes a number; nothing happens where there is no such property.
void SetNumberAt(TPersistent& object, const QString& path, int value);

}
