#pragma once

#include "projects/ProjectBuilder.h"

#include "files/SourceFile.h"

// What the source of a program, library or package says about the project's modules.
struct ProgramSource {
    QList<ModuleEntry> Modules;
    QList<ModuleEntry> PlainUnits; // used without a file name: the project's own or a library's
    QList<CreatedForm> Created; // in the order in which the program creates them

    // A .dpr, .dpk or .lpr: `Main in 'Main.pas' {MainForm: TFrame}` and `CreateForm(TMainForm, MainForm)`.
    static ProgramSource FromPascal(const SourceFile& file, bool lazarus);

    // The .cpp of a C++ program: `USEFORM("Main.cpp", MainForm); /* TFrame: File Type */` and
    // `CreateForm(__classid(TMainForm), &MainForm)`.
    static ProgramSource FromCpp(const SourceFile& file);

    static ProgramSource Read(const SourceFile& file, bool lazarus);
};
