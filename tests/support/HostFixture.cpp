#include "support/HostFixture.h"

#include "classes/StandardClasses.h"
#include "data/DataClasses.h"

#include <QFileInfo>

namespace {

QString Short(const QString& fileName)
{
    return QFileInfo(fileName).fileName();
}

QString NameOf(TPersistent* item)
{
    const auto* component = dynamic_cast<TComponent*>(item);
    return component ? component->Name() : item ? item->ClassName() : QStringLiteral("nil");
}

QString FormName(const InterfacePtr<IDesigner>& designer)
{
    return designer && designer->GetRoot() ? designer->GetRoot()->Name() : QStringLiteral("?");
}

}

// What listeners write with; they may outlive the recorder.
class HostRecorder::Pen {
public:
    explicit Pen(HostRecorder* recorder)
        : FRecorder(recorder)
    {
    }
    HostRecorder* Recorder() const { return FRecorder; }
    void PutDown() { FRecorder = nullptr; }
    void Note(const QString& line) const
    {
        if (FRecorder)
            FRecorder->Note(line);
    }

private:
    HostRecorder* FRecorder;
};

// The four kinds of listeners, each a small object that writes lines.
class HostRecorder::Listener {
public:
    class Ide : public NotifierOf<TNotifierObject, IOTAIDENotifier> {
    public:
        explicit Ide(std::shared_ptr<Pen> recorder)
            : FRecorder(std::move(recorder))
        {
        }
        void FileNotification(TOTAFileNotification code, const QString& fileName, bool&) override
        {
            if (code == ofnFileOpening)
                return;
            FRecorder->Note(QStringLiteral("file %1 %2")
                                .arg(GetEnumName(TOTAFileNotificationInfo(), code), Short(fileName))
                                .trimmed());
            auto* module = code == ofnFileOpened && FRecorder->Recorder()
                ? FRecorder->Recorder()->FHost.FindOpenModule(fileName)
                : nullptr;
            if (module)
                FRecorder->Recorder()->Watch(*module);
        }
        void BeforeCompile(IOTAProject*, bool&) override { }
        void AfterCompile(bool) override { }

    private:
        std::shared_ptr<Pen> FRecorder;
    };

    class Form : public NotifierOf<TNotifierObject, IOTAFormNotifier> {
    public:
        Form(std::shared_ptr<Pen> recorder, ModuleFormEditor& editor)
            : FRecorder(std::move(recorder))
            , FEditor(editor)
            , FName(Short(editor.GetFileName()))
        {
        }
        void Destroyed() override { FRecorder->Note(QStringLiteral("destroyed ") + FName); }
        void FormActivated() override { FRecorder->Note(QStringLiteral("activated ") + FName); }
        void FormSaving() override { FRecorder->Note(QStringLiteral("saving ") + FName); }
        void ComponentRenamed(TOTAHandle handle, const QString& oldName, const QString& newName) override
        {
            const auto found = FEditor.GetComponentFromHandle(handle);
            FRecorder->Note(QStringLiteral("renamed %1 %2 -> %3%4")
                                .arg(FName, oldName.isEmpty() ? QStringLiteral("''") : oldName,
                                    newName.isEmpty() ? QStringLiteral("''") : newName,
                                    found ? QString() : QStringLiteral(" (no such handle)")));
        }

    private:
        std::shared_ptr<Pen> FRecorder;
        ModuleFormEditor& FEditor;
        QString FName;
    };

    class Unit : public NotifierOf<TNotifierObject, IOTAModuleNotifier> {
    public:
        Unit(std::shared_ptr<Pen> recorder, const QString& name)
            : FRecorder(std::move(recorder))
            , FName(Short(name))
        {
        }
        void Destroyed() override { FRecorder->Note(QStringLiteral("destroyed ") + FName); }
        bool CheckOverwrite() override { return true; }
        void ModuleRenamed(const QString& newName) override
        {
            FRecorder->Note(QStringLiteral("module %1 renamed to %2").arg(FName, Short(newName)));
        }

    private:
        std::shared_ptr<Pen> FRecorder;
        QString FName;
    };

    class Design : public Implements<TInterfacedObject, IDesignNotification> {
    public:
        explicit Design(std::shared_ptr<Pen> recorder)
            : FRecorder(std::move(recorder))
        {
        }
        void ItemDeleted(const InterfacePtr<IDesigner>& designer, TPersistent* item) override
        {
            FRecorder->Note(QStringLiteral("deleted %1.%2").arg(FormName(designer), NameOf(item)));
        }
        void ItemInserted(const InterfacePtr<IDesigner>& designer, TPersistent* item) override
        {
            FRecorder->Note(QStringLiteral("inserted %1.%2").arg(FormName(designer), NameOf(item)));
        }
        void ItemsModified(const InterfacePtr<IDesigner>& designer) override
        {
            FRecorder->Note(QStringLiteral("modified ") + FormName(designer));
        }
        void SelectionChanged(
            const InterfacePtr<IDesigner>& designer, const InterfacePtr<IDesignerSelections>& selection) override
        {
            QStringList names;
            for (int i = 0; i < selection->GetCount(); ++i)
                names << NameOf(selection->Get(i));
            FRecorder->Note(
                QStringLiteral("selection %1: %2").arg(FormName(designer), names.join(QLatin1String(", "))).trimmed());
        }
        void DesignerOpened(const InterfacePtr<IDesigner>& designer, bool resurrecting) override
        {
            FRecorder->Note(
                (resurrecting ? QStringLiteral("resurrected ") : QStringLiteral("opened ")) + FormName(designer));
        }
        void DesignerClosed(const InterfacePtr<IDesigner>& designer, bool goingDormant) override
        {
            FRecorder->Note(
                (goingDormant ? QStringLiteral("dormant ") : QStringLiteral("closed ")) + FormName(designer));
        }

    private:
        std::shared_ptr<Pen> FRecorder;
    };
};

HostRecorder::HostRecorder(Host& host)
    : FHost(host)
    , FPen(std::make_shared<Pen>(this))
    , FIde(New<Listener::Ide>(FPen))
    , FDesigns(New<Listener::Design>(FPen))
{
    FIndex = FHost.Notifiers.Add(FIde);
    RegisterDesignNotification(FDesigns);
    for (auto* module : FHost.Modules())
        Watch(*module);
}

HostRecorder::~HostRecorder()
{
    FHost.Notifiers.Remove(FIndex);
    UnregisterDesignNotification(FDesigns);
    FPen->PutDown();
}

void HostRecorder::Watch(Module& module)
{
    if (module.HasDesigner())
        module.FormEditor().AddNotifier(
            static_cast<IOTAFormNotifier*>(New<Listener::Form>(FPen, module.FormEditor()).get()));
    module.AddNotifier(static_cast<IOTAModuleNotifier*>(New<Listener::Unit>(FPen, module.UnitFile()).get()));
}

void HostRecorder::Note(const QString& line)
{
    FLines << line;
    if (OnLine)
        OnLine(line);
}

std::string HostRecorder::Take()
{
    std::string text;
    for (const auto& line : std::exchange(FLines, {}))
        text += line.toStdString() + '\n';
    return text;
}

// The catalogues are read once for all tests of the program.
PackageList& HostFixture::Packages()
{
    static auto* const packages = [] {
        RegisterStandardClasses();
        RegisterDataClasses();
        auto* made = new PackageList;
        for (const auto& problem : made->Load(QStringLiteral(MORVANE_SOURCE_DIR "/packages")))
            ADD_FAILURE() << problem.ToString().toStdString();
        return made;
    }();
    return *packages;
}

HostFixture::HostFixture(Catalogues catalogues)
    : Registry(Folder.filePath(QStringLiteral("registry.ini")))
    , ToolsMenu(new TMenuItem)
{
    if (catalogues == Catalogues::None) {
        RegisterStandardClasses();
        RegisterDataClasses();
    }
    ToolsMenu->SetName(QStringLiteral("ToolsMenu"));
    ToolsMenu->SetCaption(QStringLiteral("Tools"));
    Menu.Items().Add(ToolsMenu);
    HostParts parts;
    parts.MessageBox = [this](const QString& text, TMsgDlgType, TMsgDlgButtons) {
        Questions << text;
        return Answer;
    };
    parts.Exceptions = [this](const Exception& exception) { Exceptions << exception.Message(); };
    parts.Registry = &Registry;
    parts.MainMenu = &Menu;
    parts.Packages = catalogues == Catalogues::Installed ? &Packages() : nullptr;
    TheHost = std::make_unique<Host>(parts);
}

HostFixture::~HostFixture() = default;

void HostFixture::Open(ScriptedProject& project)
{
    if (!TheHost->Open(project.Write()))
        ADD_FAILURE() << "the project cannot be opened: " << Problems();
}

Module& HostFixture::FormOf(const QString& name)
{
    auto* module = TheHost->FormModule(name);
    if (!module)
        qFatal("no open form %s", qPrintable(name));
    return *module;
}

TComponent* HostFixture::Component(const QString& formDotName)
{
    const auto dot = formDotName.indexOf(u'.');
    auto* module = TheHost->FormModule(formDotName.left(dot));
    if (!module || dot < 0)
        return module ? module->TheDesigner().Root() : nullptr;
    return module->TheDesigner().GetComponent(formDotName.mid(dot + 1));
}

QByteArray HostFixture::FormText(const QString& form)
{
    return FormOf(form).TheDesigner().Form()->Document().Bytes();
}

QByteArray HostFixture::UnitText(const QString& form)
{
    auto* unit = FormOf(form).Unit();
    return unit ? unit->Files().first().Bytes : QByteArray();
}

std::string HostFixture::Problems()
{
    std::string text;
    for (auto problem : TheHost->Reported()) {
        problem.FileName = Short(problem.FileName);
        text += problem.ToString().toStdString() + '\n';
    }
    return text;
}

std::string LineDifference(const QByteArray& before, const QByteArray& after)
{
    auto old = before.split('\n');
    auto now = after.split('\n');
    // The longest common part of lines; forms in tests are short.
    const auto rows = old.size();
    const auto columns = now.size();
    QList<QList<int>> common(rows + 1, QList<int>(columns + 1, 0));
    for (auto i = rows - 1; i >= 0; --i)
        for (auto j = columns - 1; j >= 0; --j)
            common[i][j] = old[i] == now[j] ? common[i + 1][j + 1] + 1 : std::max(common[i + 1][j], common[i][j + 1]);
    std::string text;
    qsizetype i = 0;
    qsizetype j = 0;
    const auto add = [&text](char sign, const QByteArray& line) { text += sign + line.trimmed().toStdString() + '\n'; };
    while (i < rows || j < columns) {
        if (i < rows && j < columns && old[i] == now[j]) {
            ++i;
            ++j;
        } else if (j < columns && (i >= rows || common[i][j + 1] > common[i + 1][j])) {
            add('+', now[j++]);
        } else {
            add('-', old[i++]);
        }
    }
    return text;
}
