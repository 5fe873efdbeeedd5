#include "app/MainWindow.h"

#include "configuration/UserConfiguration.h"
#include "designer/FormSurface.h"
#include "rtl/Guard.h"
#include "services/Module.h"
#include "services/Project.h"

#include <QCoreApplication>
#include <QDir>

// Why the tree is as it is; the user's word on databases; the plug-in's configuration and log.

namespace {

const QString TrustedKey = QStringLiteral("Trusted/Projects");

QString PluginFile()
{
    return QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("Morvane290.bpl"));
}

}

void MainWindow::UpdateStatus()
{
    FStatus->setText(StatusText());
}

QString MainWindow::ConfigurationTrouble() const
{
    const UserConfiguration configuration(FSession->ConfigurationFolder());
    if (const auto error = configuration.FindError()) {
        const auto text = configuration.HasGoodCopy()
            ? tr("The configuration cannot be read: %1 - Tools > Restore the Configuration puts the last good one back")
            : tr("The configuration cannot be read: %1 - Tools > Restore the Configuration begins with a new one");
        return text.arg(error->ToString());
    }
    if (!configuration.OffersControls())
        return tr(
            "No controls are configured: nothing can be dragged. Tools > Restore the Configuration sets them up.");
    return {};
}

// The plug-in saves while it runs, and a person or another workbench may write the file. Each one that can be read is
// kept; of one that cannot, the fault is told. Where the plug-in did not start, it gets another chance.
void MainWindow::NoteConfiguration()
{
    const UserConfiguration configuration(FSession->ConfigurationFolder());
    const auto error = configuration.FindError();
    if (!error && !FPluginFailure.isEmpty())
        return StartPlugin();
    if (const auto failure = configuration.KeepGoodCopy())
        AddProblem(*failure);
    const auto trouble = ConfigurationTrouble();
    if (std::exchange(FConfigurationTrouble, trouble) == trouble)
        return;
    if (error)
        AddProblem(*error);
    RefreshLater();
}

QString MainWindow::StatusText()
{
    const auto* project = TheHost().ActiveProject();
    if (!FConfigurationTrouble.isEmpty())
        return FConfigurationTrouble;
    if (!FPluginFailure.isEmpty())
        return tr("Morvane does not run: %1").arg(FPluginFailure);
    if (!FToolWindow)
        return tr("Morvane is not loaded");
    if (!project)
        return tr("Open a project: File > Open Project");
    const auto& personality = project->Description().Personality;
    if (personality != u"Delphi.Personality" && personality != u"CPlusPlusBuilder.Personality")
        return tr("The tree is empty: projects of the kind \"%1\" are not known").arg(personality);
    auto* surface = Surface();
    auto* designer = surface && surface->TheModule().HasDesigner() ? &surface->TheModule().TheDesigner() : nullptr;
    if (designer && designer->Selection().size() == 1)
        if (const auto* component = dynamic_cast<TComponent*>(designer->Selection()[0])) {
            const auto* control = dynamic_cast<const TControl*>(component);
            const auto text = QStringLiteral("%1: %2").arg(component->Name(), component->ClassName());
            return control ? QStringLiteral("%1   %2, %3   %4 x %5")
                                 .arg(text)
                                 .arg(control->Left())
                                 .arg(control->Top())
                                 .arg(control->Width())
                                 .arg(control->Height())
                           : text;
        }
    return tr("Drag a dataset or a field from the tree onto a form");
}

bool MainWindow::IsTrusted(const QString& projectFile) const
{
    return FSettings->value(TrustedKey).toStringList().contains(projectFile);
}

void MainWindow::SetTrusted(const QString& projectFile, bool trusted)
{
    auto files = FSettings->value(TrustedKey).toStringList();
    files.removeAll(projectFile);
    if (trusted)
        files << projectFile;
    FSettings->setValue(TrustedKey, files);
    if (trusted)
        FSession->AllowConnections(projectFile);
    else
        FSession->Data().Disallow(projectFile);
}

void MainWindow::ToggleConnections()
{
    const auto* project = TheHost().ActiveProject();
    if (!project)
        return;
    const auto file = project->Description().FileName;
    if (IsTrusted(file)) {
        SetTrusted(file, false);
        return;
    }
    const auto question = tr("Allow this project to connect to its databases?\n\n%1\n\nMorvane then reads table "
                             "structures and previews rows. It writes nothing to a database.")
                              .arg(file);
    if (MessageDlg(question, mtConfirmation, mbYes | mbNo) == mrYes)
        SetTrusted(file, true);
}

// The plug-in reads its configuration when it is loaded and may write it when it is unloaded.
void MainWindow::RestartPlugin()
{
    StartPlugin();
    Refresh();
}

void MainWindow::ToggleLog()
{
    const UserConfiguration configuration(FSession->ConfigurationFolder());
    const bool isKept = configuration.IsLogEnabled();
    TheHost().UnloadPackage(PluginFile());
    Tell(isKept ? configuration.DisableLog() : configuration.EnableLog());
    RestartPlugin();
}

// The last configuration that could be read in the place of one that cannot; the starter where there is none, and for
// one that offers no control.
Failure MainWindow::Restore()
{
    const UserConfiguration configuration(FSession->ConfigurationFolder());
    const bool cannotBeRead = configuration.FindError().has_value();
    return cannotBeRead && configuration.HasGoodCopy() ? configuration.RestoreGoodCopy()
                                                       : configuration.ReplaceByStarter();
}

void MainWindow::OfferStarter(const UserConfiguration& configuration)
{
    const auto question = tr("No controls are configured, so that nothing can be dragged:\n\n%1\n\nPut the starter "
                             "configuration in its place? What is there now is kept as %2.");
    if (MessageDlg(question.arg(configuration.FileName(), configuration.ReplacedName()), mtConfirmation, mbYes | mbNo)
        == mrYes)
        Tell(Restore());
}

void MainWindow::OfferToRestore()
{
    const UserConfiguration configuration(FSession->ConfigurationFolder());
    const auto error = configuration.FindError();
    if (!error && !configuration.OffersControls())
        return OfferStarter(configuration);
    if (!error)
        return;
    AddProblem(*error);
    const auto question = configuration.HasGoodCopy()
        ? tr("The configuration cannot be read:\n\n%1\n\nPut the last one that could be read in its place? What is "
             "there now is kept as %2.")
        : tr("The configuration cannot be read:\n\n%1\n\nPut the starter configuration in its place? What is there "
             "now is kept as %2.");
    if (MessageDlg(question.arg(error->ToString(), configuration.ReplacedName()), mtWarning, mbYes | mbNo) == mrYes)
        Tell(Restore());
}

void MainWindow::RestoreConfiguration()
{
    const UserConfiguration configuration(FSession->ConfigurationFolder());
    const bool hasGood = configuration.FindError() && configuration.HasGoodCopy();
    const auto question = hasGood
        ? tr("Put the last configuration that could be read in the place of this one?\n\n%1\n\nWhat is there now is "
             "kept as %2.")
              .arg(configuration.FileName(), configuration.ReplacedName())
        : tr("Put the starter configuration in the place of this one?\n\n%1\n\nWhat is there now is kept as %2.")
              .arg(configuration.FileName(), configuration.ReplacedName());
    if (MessageDlg(question, mtConfirmation, mbYes | mbNo) != mrYes)
        return;
    TheHost().UnloadPackage(PluginFile());
    Tell(Restore());
    RestartPlugin();
}
