#include "support/ScriptedProject.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>

#include <algorithm>

ScriptedProject::ScriptedProject(const QString& name, Kind kind)
    : FOwnFolder(std::make_unique<QTemporaryDir>())
    , FFolder(QFileInfo(FOwnFolder->path()).canonicalFilePath())
    , FName(name)
    , FKind(kind)
    , FFramework(kind == Kind::Lazarus ? QStringLiteral("LCL") : QStringLiteral("VCL"))
{
}

ScriptedProject& ScriptedProject::Add(const Part& part)
{
    FParts << part;
    return *this;
}

ScriptedProject& ScriptedProject::Form(const QString& name, const QString& components)
{
    Part part { name, QStringLiteral("TForm"), {}, components };
    return Add(part);
}

ScriptedProject& ScriptedProject::DataModule(const QString& name, const QString& components)
{
    Part part { name, QStringLiteral("TDataModule"), QStringLiteral("TDataModule"), components };
    return Add(part);
}

ScriptedProject& ScriptedProject::Frame(const QString& name, const QString& components)
{
    Part part { name, QStringLiteral("TFrame"), QStringLiteral("TFrame"), components };
    return Add(part);
}

ScriptedProject& ScriptedProject::InheritedForm(const QString& name, const QString& ancestor, const QString& components)
{
    Part part { name, u'T' + ancestor, {}, components, true };
    part.Uses << ancestor + QLatin1String("Unit");
    return Add(part);
}

ScriptedProject& ScriptedProject::Unit(const QString& name)
{
    Part part;
    part.Name = name;
    part.HasForm = false;
    return Add(part);
}

ScriptedProject::Part& ScriptedProject::PartOf(const QString& name)
{
    const auto found
        = std::find_if(FParts.begin(), FParts.end(), [&name](const Part& part) { return part.Name == name; });
    if (found == FParts.end())
        qFatal("no form %s in the scripted project", qPrintable(name));
    return *found;
}

ScriptedProject& ScriptedProject::FormFile(const QString& name, const QByteArray& text)
{
    PartOf(name).FormText = text;
    return *this;
}

ScriptedProject& ScriptedProject::UnitFile(const QString& name, const QByteArray& text)
{
    PartOf(name).UnitText = text;
    return *this;
}

ScriptedProject& ScriptedProject::Uses(const QString& form, const QString& unit)
{
    PartOf(form).Uses << unit;
    return *this;
}

ScriptedProject& ScriptedProject::KeepClosed(const QString& form)
{
    PartOf(form).IsOpen = false;
    return *this;
}

ScriptedProject& ScriptedProject::Framework(const QString& framework)
{
    FFramework = framework;
    return *this;
}

ScriptedProject& ScriptedProject::In(const QString& folder)
{
    FFolder = folder;
    return *this;
}

QString ScriptedProject::Path(const QString& fileName) const
{
    return fileName.isEmpty() ? FFolder : FFolder + u'/' + fileName;
}

QString ScriptedProject::UnitName(const Part& part) const
{
    return part.HasForm ? part.Name + QLatin1String("Unit") : part.Name;
}

QString ScriptedProject::UnitOf(const QString& form) const
{
    const auto extension = FKind == Kind::CppBuilder ? QLatin1String(".cpp") : QLatin1String(".pas");
    const auto part
        = std::find_if(FParts.begin(), FParts.end(), [&form](const Part& each) { return each.Name == form; });
    return Path((part != FParts.end() ? UnitName(*part) : form) + extension);
}

QString ScriptedProject::FormOf(const QString& form) const
{
    const auto extension = FKind == Kind::Lazarus ? QLatin1String(".lfm")
        : FFramework == QLatin1String("FMX")      ? QLatin1String(".fmx")
                                                  : QLatin1String(".dfm");
    return Path(form + QLatin1String("Unit") + extension);
}

QString ScriptedProject::ProjectFile() const
{
    switch (FKind) {
    case Kind::CppBuilder:
        return Path(FName + QLatin1String(".cbproj"));
    case Kind::Lazarus:
        return Path(FName + QLatin1String(".lpi"));
    default:
        return Path(FName + QLatin1String(".dproj"));
    }
}

QByteArray ScriptedProject::Read(const QString& fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<cannot be read>");
}

void ScriptedProject::WriteFile(const QString& fileName, const QByteArray& bytes)
{
    QDir().mkpath(QFileInfo(fileName).path());
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("cannot write %s", qPrintable(fileName));
}

namespace {

bool Opens(const QString& line)
{
    static const QRegularExpression object(QStringLiteral("^(object|inherited|inline|item)\\b"));
    return object.match(line).hasMatch() || line.endsWith(QLatin1String("= <"));
}

bool Closes(const QString& line)
{
    static const QRegularExpression end(QStringLiteral("^end>?$"));
    return end.match(line).hasMatch() || line == QLatin1String(">");
}

// The lines, each with two blanks for each object that it stands in.
QString Indented(const QString& text, int level)
{
    QString result;
    for (const auto& raw : text.split(u'\n')) {
        const auto line = raw.trimmed();
        if (line.isEmpty())
            continue;
        if (Closes(line))
            --level;
        result += QString(level * 2, u' ') + line + QLatin1String("\r\n");
        if (line == QLatin1String("end>"))
            --level;
        if (Opens(line))
            ++level;
    }
    return result;
}

}

QByteArray ScriptedProject::FormTextOf(const Part& part) const
{
    if (!part.FormText.isNull())
        return part.FormText;
    auto text = QStringLiteral("%1 %2: T%2\r\n")
                    .arg(part.IsInherited ? QStringLiteral("inherited") : QStringLiteral("object"), part.Name);
    if (part.DesignClass == QLatin1String("TDataModule"))
        text += QLatin1String("  Height = 300\r\n  Width = 400\r\n");
    else if (!part.IsInherited)
        text += QLatin1String("  Left = 0\r\n  Top = 0\r\n");
    if (!part.IsInherited && part.DesignClass.isEmpty())
        text += QStringLiteral("  Caption = '%1'\r\n  ClientHeight = 480\r\n  ClientWidth = 640\r\n").arg(part.Name);
    text += Indented(part.Components, 1) + QLatin1String("end\r\n");
    if (FKind == Kind::Lazarus)
        text.remove(u'\r');
    return text.toUtf8();
}

QStringList ScriptedProject::DeclarationsOf(const Part& part, bool cpp) const
{
    static const QRegularExpression made(QStringLiteral("^(object|inline) (\\w+): (\\w+)"));
    QStringList found;
    int frames = 0;
    QList<bool> isFrame;
    for (const auto& raw : part.Components.split(u'\n')) {
        const auto line = raw.trimmed();
        const auto match = made.match(line);
        if (match.hasMatch() && frames == 0)
            found << (cpp ? QStringLiteral("\t%2 *%1;") : QStringLiteral("    %1: %2;"))
                         .arg(match.captured(2), match.captured(3));
        if (Opens(line)) {
            isFrame << line.startsWith(QLatin1String("inline"));
            frames += isFrame.last() ? 1 : 0;
        } else if (Closes(line) && !isFrame.isEmpty()) {
            frames -= isFrame.takeLast() ? 1 : 0;
        }
    }
    return found;
}

QByteArray ScriptedProject::UnitTextOf(const Part& part) const
{
    if (!part.UnitText.isNull())
        return part.UnitText;
    const auto name = UnitName(part);
    if (!part.HasForm)
        return QStringLiteral("unit %1;\r\n\r\ninterface\r\n\r\nimplementation\r\n\r\nend.\r\n").arg(name).toUtf8();
    const bool lazarus = FKind == Kind::Lazarus;
    auto uses = lazarus ? QStringList { QStringLiteral("Classes"), QStringLiteral("Forms") }
                        : QStringList { QStringLiteral("System.Classes"), QStringLiteral("Vcl.Forms") };
    uses << part.Uses;
    auto text = QStringLiteral("unit %1;\r\n\r\ninterface\r\n\r\nuses\r\n  %2;\r\n\r\ntype\r\n  T%3 = class(%4)\r\n")
                    .arg(name, uses.join(QLatin1String(", ")), part.Name, part.Base);
    for (const auto& line : DeclarationsOf(part, false))
        text += line + QLatin1String("\r\n");
    text += QStringLiteral("  private\r\n  public\r\n  end;\r\n\r\nvar\r\n  %1: T%1;\r\n\r\nimplementation\r\n\r\n"
                           "{$R *.%2}\r\n\r\nend.\r\n")
                .arg(part.Name, QFileInfo(FormOf(part.Name)).suffix());
    if (lazarus)
        text.remove(u'\r');
    return text.toUtf8();
}

QByteArray ScriptedProject::HeaderTextOf(const Part& part) const
{
    auto text = QStringLiteral("#ifndef %1H\r\n#define %1H\r\n#include <System.Classes.hpp>\r\n"
                               "#include <Vcl.Forms.hpp>\r\n")
                    .arg(UnitName(part));
    for (const auto& unit : part.Uses)
        text += QStringLiteral("#include \"%1.h\"\r\n").arg(unit);
    text += QStringLiteral("class T%1 : public %2\r\n{\r\n__published:\r\n").arg(part.Name, part.Base);
    for (const auto& line : DeclarationsOf(part, true))
        text += line + QLatin1String("\r\n");
    text += QStringLiteral("private:\r\npublic:\r\n\t__fastcall T%1(TComponent* Owner);\r\n};\r\n"
                           "extern PACKAGE T%1 *%1;\r\n#endif\r\n")
                .arg(part.Name);
    return text.toUtf8();
}

QString ScriptedProject::Write()
{
    for (const auto& part : std::as_const(FParts)) {
        if (part.HasForm)
            WriteFile(FormOf(part.Name), FormTextOf(part));
        if (FKind != Kind::CppBuilder) {
            WriteFile(UnitOf(part.Name), UnitTextOf(part));
            continue;
        }
        WriteFile(Path(UnitName(part) + QLatin1String(".h")), HeaderTextOf(part));
        WriteFile(UnitOf(part.Name),
            part.UnitText.isNull() ? QStringLiteral("#include <vcl.h>\r\n#pragma hdrstop\r\n#include \"%1.h\"\r\n")
                                         .arg(UnitName(part))
                                         .toUtf8()
                                   : part.UnitText);
    }
    if (FKind == Kind::Delphi)
        WriteDelphi();
    else if (FKind == Kind::CppBuilder)
        WriteCpp();
    else
        WriteLazarus();
    WriteDesktop();
    return ProjectFile();
}

namespace {

QString BuildFile(const QString& framework, const QString& mainSource, const QString& items, const QString& personality)
{
    return QStringLiteral("<Project xmlns=\"http://schemas.microsoft.com/developer/msbuild/2003\">\r\n"
                          "<PropertyGroup><FrameworkType>%1</FrameworkType><MainSource>%2</MainSource></PropertyGroup>"
                          "\r\n<ItemGroup>\r\n%3</ItemGroup>\r\n<ProjectExtensions><Borland.Personality>%4"
                          "</Borland.Personality></ProjectExtensions></Project>\r\n")
        .arg(framework, mainSource, items, personality);
}

QString FormTags(const QString& form, const QString& designClass)
{
    auto tags = QStringLiteral("<Form>%1</Form>").arg(form);
    if (!designClass.isEmpty())
        tags += QStringLiteral("<DesignClass>%1</DesignClass>").arg(designClass);
    return tags;
}

}

void ScriptedProject::WriteDelphi() const
{
    QString items;
    QString created;
    for (const auto& part : FParts) {
        items += QStringLiteral("<DCCReference Include=\"%1.pas\">%2</DCCReference>\r\n")
                     .arg(UnitName(part), part.HasForm ? FormTags(part.Name, part.DesignClass) : QString());
        if (part.HasForm && part.DesignClass.isEmpty())
            created += QStringLiteral("  Application.CreateForm(T%1, %1);\r\n").arg(part.Name);
    }
    WriteFile(ProjectFile(),
        BuildFile(FFramework, FName + QLatin1String(".dpr"), items, QStringLiteral("Delphi.Personality.12")).toUtf8());
    WriteFile(Path(FName + QLatin1String(".dpr")),
        QStringLiteral("program %1;\r\n\r\nuses\r\n  Vcl.Forms;\r\n\r\nbegin\r\n%2end.\r\n")
            .arg(FName, created)
            .toUtf8());
}

void ScriptedProject::WriteCpp() const
{
    QString items;
    QString created;
    int number = 0;
    for (const auto& part : FParts) {
        ++number;
        items += QStringLiteral("<CppCompile Include=\"%1.cpp\">%2<BuildOrder>%3</BuildOrder></CppCompile>\r\n")
                     .arg(UnitName(part), part.HasForm ? FormTags(part.Name, part.DesignClass) : QString())
                     .arg(number);
        if (part.HasForm && part.DesignClass.isEmpty())
            created += QStringLiteral("  Application->CreateForm(__classid(T%1), &%1);\r\n").arg(part.Name);
    }
    const auto source = FName + QLatin1String(".cpp");
    items += QStringLiteral("<CppCompile Include=\"%1\"><BuildOrder>0</BuildOrder></CppCompile>\r\n").arg(source);
    WriteFile(ProjectFile(),
        BuildFile(FFramework, source, items, QStringLiteral("CPlusPlusBuilder.Personality.12")).toUtf8());
    WriteFile(Path(source),
        QStringLiteral("#include <vcl.h>\r\nint WINAPI _tWinMain()\r\n{\r\n%1}\r\n").arg(created).toUtf8());
}

void ScriptedProject::WriteLazarus() const
{
    QString units;
    QString created;
    int number = 0;
    for (const auto& part : FParts) {
        ++number;
        auto tags = QStringLiteral("<Filename Value=\"%1.pas\"/><IsPartOfProject Value=\"True\"/>").arg(UnitName(part));
        if (part.HasForm)
            tags += QStringLiteral("<ComponentName Value=\"%1\"/><HasResources Value=\"True\"/>"
                                   "<ResourceBaseClass Value=\"%2\"/>")
                        .arg(part.Name, part.DesignClass.isEmpty() ? QStringLiteral("Form") : part.DesignClass.mid(1));
        if (part.IsOpen)
            tags += QStringLiteral("<EditorIndex Value=\"%1\"/><Loaded Value=\"True\"/>").arg(number);
        units += QStringLiteral("<Unit%1>%2</Unit%1>\n").arg(number).arg(tags);
        if (part.HasForm && part.DesignClass.isEmpty())
            created += QStringLiteral("  Application.CreateForm(T%1, %1);\n").arg(part.Name);
    }
    const auto source = FName + QLatin1String(".lpr");
    WriteFile(ProjectFile(),
        QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<CONFIG><ProjectOptions><PathDelim Value=\"\\\"/>"
                       "<General><MainUnit Value=\"0\"/></General><RequiredPackages><Item1><PackageName Value=\"LCL\"/>"
                       "</Item1></RequiredPackages>\n<Units>\n<Unit0><Filename Value=\"%1\"/><IsPartOfProject "
                       "Value=\"True\"/></Unit0>\n%2</Units></ProjectOptions></CONFIG>\n")
            .arg(source, units)
            .toUtf8());
    WriteFile(Path(source), QStringLiteral("program %1;\nuses Forms;\nbegin\n%2end.\n").arg(FName, created).toUtf8());
}

void ScriptedProject::WriteDesktop() const
{
    if (FKind == Kind::Lazarus)
        return;
    QString modules;
    int number = 0;
    for (const auto& part : FParts)
        if (part.IsOpen)
            modules += QStringLiteral("Module%1=%2\r\n").arg(number++).arg(UnitOf(part.Name));
    WriteFile(Path(FName + QLatin1String(".dsk")), QStringLiteral("[Modules]\r\n%1").arg(modules).toUtf8());
}

QString ScriptedProject::WriteGroup(const QList<ScriptedProject*>& projects, const QString& name)
{
    QString items;
    for (auto* project : projects)
        items += QStringLiteral("<Projects Include=\"%1\"><Dependencies/></Projects>\r\n").arg(project->Write());
    const auto file = projects.first()->Path(name + QLatin1String(".groupproj"));
    WriteFile(file,
        QStringLiteral("<Project xmlns=\"http://schemas.microsoft.com/developer/msbuild/2003\"><ItemGroup>\r\n%1"
                       "</ItemGroup></Project>\r\n")
            .arg(items)
            .toUtf8());
    return file;
}
