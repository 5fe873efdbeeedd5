// What building the model's list costs for 10,000 datasets of 20 persistent fields, and for twice as many. "ratio" is
// how many times as long the larger project takes, the quickest of each; the limit is 2.3.

#include "classes/StandardClasses.h"
#include "config/MrvCfgIntf.h"
#include "data/DataClasses.h"
#include "model/MrvClasses.h"
#include "rtl/TRegistry.h"
#include "services/Host.h"
#include "support/MrvConst.h"
#include "support/ScriptedProject.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

constexpr double Limit = 2.3;
constexpr int Rounds = 9;
constexpr int DataSets = 10000;
constexpr int Fields = 20;

QString Components(int module, int count)
{
    QString text = u"object Shop: TZAConnection\nend\n"_qs;
    for (int i = 0; i < count; ++i) {
        const auto name = u"Query%1x%2"_qs.arg(module).arg(i);
        text += u"object %1: TZAQuery\nConnection = Shop\n"_qs.arg(name);
        for (int field = 0; field < Fields; ++field)
            text += u"object %1F%2: TStringField\nFieldName = 'F%2'\nend\n"_qs.arg(name).arg(field);
        text += u"end\n"_qs;
    }
    return text;
}

// An open project of so many datasets, a hundred or fewer on each data module, and a configuration of its own.
class Shop {
public:
    Shop(int dataSets, int perModule)
    {
        RegisterStandardClasses();
        RegisterDataClasses();
        for (int module = 0; module < dataSets / perModule; ++module)
            FProject.DataModule(u"Data%1"_qs.arg(module), Components(module, perModule));
        FRegistry.Write(IDEInfos[IDEVer].MorvaneRegistryKey, u"ConfigFilePath"_qs, FFolder.path() + u'/');
        HostParts parts;
        parts.Registry = &FRegistry;
        FHost = std::make_unique<Host>(parts);
        FHost->Open(FProject.Write());
        FService = New<TMrvConfigurationService>();
    }
    ~Shop()
    {
        FService.Clear();
        FHost.reset();
        TRegistryStore::SetDefault(nullptr);
    }

    // Seconds for one list from nothing, the quickest of some.
    double Build(int expected)
    {
        double best = 1e9;
        for (int i = 0; i < Rounds; ++i) {
            const auto list = New<TDataSetList>();
            list->IntfRegisterConfigurationService(FService);
            QElapsedTimer timer;
            timer.start();
            list->BuildDataSetList(true);
            best = std::min(best, double(timer.nsecsElapsed()) / 1e9);
            if (list->GetItemCount() != expected)
                return -1;
        }
        return best;
    }

private:
    QTemporaryDir FFolder;
    TRegistryStore FRegistry { FFolder.filePath(u"registry.ini"_qs) };
    ScriptedProject FProject;
    std::unique_ptr<Host> FHost;
    InterfacePtr<TMrvConfigurationService> FService;
};

double BuildTime(int dataSets, int perModule)
{
    return Shop(dataSets, perModule).Build(dataSets);
}

// The argument is how many datasets stand on each module.
void BuildList(benchmark::State& state)
{
    const int perModule = int(state.range(0));
    for (auto _ : state) {
        const double once = BuildTime(DataSets, perModule);
        const double twice = BuildTime(2 * DataSets, perModule);
        state.SetIterationTime(once + twice);
        state.counters["once"] = once;
        state.counters["twice"] = twice;
        state.counters["ratio"] = twice / once;
        if (once <= 0 || twice <= 0)
            state.SkipWithError("the list does not hold the project's datasets");
        else if (twice / once > Limit)
            state.SetLabel("MISSED: the time grows faster than the project");
    }
}
BENCHMARK(BuildList)->Arg(100)->Arg(20)->Iterations(1)->UseManualTime()->Unit(benchmark::kSecond);

}

int main(int argc, char** argv)
{
    QCoreApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
