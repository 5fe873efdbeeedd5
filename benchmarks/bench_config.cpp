// What loading the configuration costs beside the floor: a bare pass of QXmlStreamReader over the same content, read as
// often and as far as the four loads read it. "ratio" is how many times the floor a load takes; the limit is 2.5.

#include "config/MrvCfgIntf.h"
#include "rtl/TRegistry.h"
#include "rtl/TResourceStream.h"
#include "support/MrvConst.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QXmlStreamReader>

#include <benchmark/benchmark.h>

namespace {

constexpr double Limit = 2.5;
constexpr int Rounds = 50;

// A service over a configuration of its own.
class Place {
public:
    Place()
    {
        TRegistryStore::SetDefault(&FRegistry);
        FRegistry.Write(IDEInfos[IDEVer].MorvaneRegistryKey, u"ConfigFilePath"_qs, FFolder.path() + u'/');
        Service = New<TMrvConfigurationService>();
    }
    ~Place() { TRegistryStore::SetDefault(nullptr); }

    QByteArray Content() const
    {
        QFile file(Service->FileName());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    void SetContent(const QByteArray& content) const
    {
        QFile file(Service->FileName());
        if (file.open(QIODevice::WriteOnly))
            file.write(content);
        file.close();
        Service->Load();
    }

    InterfacePtr<TMrvConfigurationService> Service;

private:
    QTemporaryDir FFolder;
    TRegistryStore FRegistry { FFolder.filePath(u"registry.ini"_qs) };
};

// The embedded sections under the names that are looked for: a saved file of the same size.
QByteArray AsSaved(QByteArray content)
{
    for (const auto* name : { "VCL", "CLR", "CLX" }) {
        content.replace(QByteArray("<") + name, QByteArray("<pr") + name);
        content.replace(QByteArray("</") + name, QByteArray("</pr") + name);
    }
    return content;
}

// Reads the file up to the end of the element, or to its end where there is none.
int BarePass(const QString& fileName, QStringView until)
{
    QFile file(fileName);
    file.open(QIODevice::ReadOnly);
    QXmlStreamReader reader(&file);
    int nodes = 0;
    while (!reader.atEnd()) {
        const auto token = reader.readNext();
        ++nodes;
        if (token == QXmlStreamReader::EndElement && reader.qualifiedName() == until)
            break;
    }
    return nodes;
}

void BareLoads(const QString& fileName)
{
    for (const QStringView until : { u"Preferences", u"prVCL", u"prCLR", u"prCLX" })
        benchmark::DoNotOptimize(BarePass(fileName, until));
}

// Both in turn, and the quickest of each, so that a busy machine slows neither alone.
void Compare(benchmark::State& state, const Place& place)
{
    double ours = 1e18;
    double floor = 1e18;
    QElapsedTimer timer;
    for (auto _ : state) {
        for (int round = 0; round < Rounds; ++round) {
            timer.start();
            place.Service->Load();
            ours = std::min(ours, double(timer.nsecsElapsed()));
            timer.start();
            BareLoads(place.Service->FileName());
            floor = std::min(floor, double(timer.nsecsElapsed()));
        }
    }
    state.counters["bytes"] = double(place.Content().size());
    state.counters["load us"] = ours / 1000;
    state.counters["floor us"] = floor / 1000;
    state.counters["ratio"] = ours / floor;
    if (ours > Limit * floor)
        state.SkipWithError("a load takes more than 2.5 times a bare pass");
}

void LoadEmbeddedDefault(benchmark::State& state)
{
    const Place place;
    Compare(state, place);
}
BENCHMARK(LoadEmbeddedDefault)->Unit(benchmark::kMillisecond)->Iterations(5);

void LoadSavedFile(benchmark::State& state)
{
    const Place place;
    place.SetContent(AsSaved(place.Content()));
    Compare(state, place);
}
BENCHMARK(LoadSavedFile)->Unit(benchmark::kMillisecond)->Iterations(5);

void LookUpPreference(benchmark::State& state)
{
    const Place place;
    InterfacePtr<IMrvPreferences> preferences;
    place.Service->GetPreferences(preferences);
    const auto name = u"ScanAllForms"_qs;
    QString value;
    for (auto _ : state) {
        preferences->GetValueByName(name, value);
        benchmark::DoNotOptimize(value);
    }
}
BENCHMARK(LookUpPreference);

}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
