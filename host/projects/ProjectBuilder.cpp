#include "projects/ProjectBuilder.h"

#include "files/SourceFile.h"
#include "projects/FormHeader.h"
#include "units/SourceUnit.h"

#include <QFileInfo>
#include <QRegularExpression>

namespace {

// No path is longer; a variable that grows beyond it stands for nothing.
constexpr qsizetype longestPath = 4096;

const QStringList unitExtensions { QStringLiteral("pas"), QStringLiteral("pp"), QStringLiteral("p"),
    QStringLiteral("cpp"), QStringLiteral("cxx"), QStringLiteral("cc") };

bool isUnit(const QString& path)
{
    return unitExtensions.contains(QFileInfo(path).suffix(), Qt::CaseInsensitive);
}

// The ancestor that the unit gives the class of its form.
QString designClassFrom(const QString& unit, const QString& className, bool lazarus)
{
    Failure failure;
    const auto source = OpenSourceUnit(unit, lazarus, failure);
    const auto declared = source ? source->FindClass(className) : std::nullopt;
    const auto ancestor = declared ? declared->Ancestor.section(u'.', -1) : QString();
    static const QStringList told { QStringLiteral("tdatamodule"), QStringLiteral("tframe"),
        QStringLiteral("twebmodule"), QStringLiteral("tservice") };
    return told.contains(ancestor.toLower()) ? ancestor : QString();
}

}

QString FoldedPath(const QString& path)
{
    return path.normalized(QString::NormalizationForm_C).toCaseFolded();
}

ModuleType TypeOfDesignClass(const QString& designClass)
{
    const auto name = designClass.toLower();
    const bool container = name.endsWith(QLatin1String("module")) || name == u"tservice";
    return container ? ModuleType::DataModule : ModuleType::Form;
}

ProjectBuilder::ProjectBuilder(const QString& fileName)
{
    const QFileInfo info(fileName);
    const auto found = FFiles.Find(info.absoluteFilePath());
    Project.FileName = found.isEmpty() ? ResolvedPath(QString(), info.absoluteFilePath()) : found;
    const QFileInfo file(Project.FileName);
    FFolder = file.absolutePath();
    Project.DisplayName = file.completeBaseName();
    SetVariable(QStringLiteral("MSBuildProjectName"), Project.DisplayName);
    SetVariable(QStringLiteral("MSBuildProjectDirectory"), FFolder);
    SetVariable(QStringLiteral("ProjPath"), FFolder);
}

void ProjectBuilder::Report(Problem place, const QString& text)
{
    place.Text = text;
    place.Severity = Problem::Warning;
    Project.Problems << place;
}

void ProjectBuilder::SetVariable(const QString& name, const QString& value)
{
    const auto expanded = Expand(value, nullptr);
    if (expanded.size() <= longestPath)
        FVariables.insert(name.toLower(), expanded);
}

QString ProjectBuilder::Expand(const QString& text, QString* unknown) const
{
    if (!text.contains(u'$'))
        return text;
    static const QRegularExpression variable(QStringLiteral("\\$\\(([\\w.]+)\\)|\\$(\\w+)\\(\\)"));
    QString expanded;
    qsizetype at = 0;
    auto matches = variable.globalMatch(text);
    while (matches.hasNext()) {
        const auto match = matches.next();
        const auto name = match.captured(match.capturedLength(1) > 0 ? 1 : 2);
        const auto value = FVariables.constFind(name.toLower());
        const bool known = value != FVariables.cend() && !value->contains(u'$');
        if (!known && unknown && unknown->isEmpty())
            *unknown = match.captured();
        expanded += QStringView(text).sliced(at, match.capturedStart() - at);
        expanded += known ? *value : match.captured();
        at = match.capturedEnd();
    }
    return expanded.append(QStringView(text).sliced(at));
}

QString ProjectBuilder::Resolve(const QString& path, const Problem& place)
{
    QString unknown;
    const auto expanded = Expand(path, &unknown);
    if (!unknown.isEmpty()) {
        Report(place, QStringLiteral("%1 is left out: the variable %2 is not known here").arg(path, unknown));
        return {};
    }
    if (expanded.trimmed().isEmpty() || expanded.contains(QChar(u'\0'))) {
        Report(place, QStringLiteral("a file without a name is left out"));
        return {};
    }
    const auto resolved = ResolvedPath(FFolder, expanded.trimmed());
    const auto found = FFiles.Find(resolved);
    return found.isEmpty() ? resolved : found;
}

void ProjectBuilder::AddModules(const QList<ModuleEntry>& entries)
{
    QHash<QString, int> here;
    for (const auto& entry : entries) {
        const auto path = Resolve(entry.Path, entry.Place);
        if (path.isEmpty())
            continue;
        const auto key = FoldedPath(path);
        if (key == FoldedPath(Project.FileName) || key == FoldedPath(Project.MainSource)) {
            if (!here.contains(key))
                Report(entry.Place, QStringLiteral("the project names itself as one of its modules"));
            here.insert(key, -1);
            continue;
        }
        if (const auto count = here.value(key); count > 0) {
            if (count == 1)
                Report(entry.Place, QStringLiteral("%1 is named twice and taken once").arg(entry.Path));
            here[key] = count + 1;
            continue;
        }
        here.insert(key, 1);
        auto known = FIndex.find(key);
        if (known == FIndex.end()) {
            known = FIndex.insert(key, int(FSlots.size()));
            FSlots.append({ entry, {} });
            FSlots.last().Module.FileName = path;
            continue;
        }
        auto& slot = FSlots[*known].Entry;
        slot.FormName = slot.FormName.isEmpty() ? entry.FormName : slot.FormName;
        slot.DesignClass = slot.DesignClass.isEmpty() ? entry.DesignClass : slot.DesignClass;
        slot.FormType = slot.FormType.isEmpty() ? entry.FormType : slot.FormType;
    }
}

// The form file beside the unit, of the kind the project tells or the framework would have first.
QString ProjectBuilder::FormFileOf(const Slot& slot)
{
    QStringList kinds { QStringLiteral("dfm"), QStringLiteral("fmx"), QStringLiteral("lfm"), QStringLiteral("xfm") };
    const auto prefer = [&kinds](const QString& kind) {
        kinds.removeAll(kind);
        kinds.prepend(kind);
    };
    if (Project.FrameworkType == u"FMX")
        prefer(QStringLiteral("fmx"));
    if (Project.IsLazarus() || Project.FrameworkType == u"LCL")
        prefer(QStringLiteral("lfm"));
    const auto told = slot.Entry.FormType.toLower();
    if (kinds.contains(told))
        prefer(told);
    const QFileInfo unit(slot.Module.FileName);
    for (const auto& kind : kinds) {
        auto found = FFiles.Find(unit.path() + u'/' + unit.completeBaseName() + u'.' + kind);
        if (!found.isEmpty() && QFileInfo(found).isFile())
            return found;
    }
    return {};
}

void ProjectBuilder::FinishModule(Slot& slot)
{
    auto& module = slot.Module;
    module.Exists = QFileInfo(module.FileName).isFile();
    module.Type = isUnit(module.FileName) ? ModuleType::Unit : ModuleType::Other;
    module.FormName = slot.Entry.FormName;
    module.DesignClass = slot.Entry.DesignClass;
    if (module.Type == ModuleType::Other && module.FormName.isEmpty())
        return;
    module.FormFile = FormFileOf(slot);
    if (module.FormName.isEmpty() && !module.FormFile.isEmpty()) {
        const auto header = FormHeader::Read(module.FormFile);
        module.FormName = header.Name;
        if (module.DesignClass.isEmpty() && module.Exists)
            module.DesignClass = designClassFrom(module.FileName, header.ClassName, Project.IsLazarus());
    }
    if (module.FormName.isEmpty())
        module.FormFile.clear();
    else
        module.Type = TypeOfDesignClass(module.DesignClass);
}

void ProjectBuilder::ReportMissing(const Slot& slot)
{
    const auto& module = slot.Module;
    if (!module.Exists)
        Report(slot.Entry.Place, QStringLiteral("%1 is not there").arg(slot.Entry.Path));
    else if (module.HasForm() && module.FormFile.isEmpty())
        Report(slot.Entry.Place,
            QStringLiteral("%1 has no form file, though it should hold the form %2")
                .arg(slot.Entry.Path, module.FormName));
}

void ProjectBuilder::ReportSharedNames()
{
    QHash<QString, const Slot*> names;
    for (const auto& slot : FSlots) {
        if (slot.Module.FormName.isEmpty())
            continue;
        const auto key = slot.Module.FormName.toLower();
        if (const auto* first = names.value(key))
            Report(slot.Entry.Place,
                QStringLiteral("the form %1 of %2 bears the name of the one in %3")
                    .arg(slot.Module.FormName, slot.Entry.Path, first->Entry.Path));
        else
            names.insert(key, &slot);
    }
}

void ProjectBuilder::Finish()
{
    for (auto& slot : FSlots) {
        FinishModule(slot);
        ReportMissing(slot);
        Project.Modules << slot.Module;
    }
    ReportSharedNames();
    if (!Project.FrameworkType.isEmpty())
        return;
    for (const auto& module : Project.Modules) {
        const auto kind = QFileInfo(module.FormFile).suffix().toLower();
        Project.FrameworkType = kind == u"fmx" ? QStringLiteral("FMX")
            : kind == u"lfm"                   ? QStringLiteral("LCL")
            : kind == u"dfm"                   ? QStringLiteral("VCL")
                                               : QString();
        if (!Project.FrameworkType.isEmpty())
            break;
    }
}

// The first form that is created is the main one; data modules that are created before it are not.
void ProjectBuilder::SetMainForm(const QList<CreatedForm>& created)
{
    for (const auto& form : created) {
        const auto* module = Project.FindForm(form.FormName);
        if (!module || module->Type == ModuleType::DataModule)
            continue;
        Project.MainForm = module->FormName;
        return;
    }
}
