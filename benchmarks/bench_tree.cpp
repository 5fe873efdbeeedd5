// The list that the model builds of a large project, and the tree that shows it.

#include "support/ToolWindowFixture.h"

#include <benchmark/benchmark.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QTreeWidget>

#include <map>

namespace {

constexpr int FieldsPerDataSet = 20;
constexpr int DataSetsPerForm = 200;
constexpr int Rounds = 3;

// The plug-in with a project of so many datasets open, its tree drawn.
class LargeProject : public ToolWindowFixture {
public:
    explicit LargeProject(int dataSets)
    {
        for (int first = 0; first < dataSets; first += DataSetsPerForm)
            Shop.DataModule(u"Data%1"_qs.arg(first / DataSetsPerForm), Components(DataSetsPerForm));
        StartShown();
        Open(Shop);
        Settle();
    }
    void TestBody() override { }

    int DataSets() const { return List().GetItemCount(); }
    void BuildList() const { List().BuildDataSetList(true); }
    void DrawTree() const { Window().DrawDataSetView(dmLoad); }
    // Fills a bare tree with the captions of ours.
    static void FillBareTree(QTreeWidget& bare)
    {
        bare.setUniformRowHeights(true);
        QList<QTreeWidgetItem*> top;
        for (const auto* node = Tree().Items().GetFirstNode(); node; node = node->GetNextSibling())
            top << BareItem(*node);
        bare.addTopLevelItems(top);
    }

private:
    static QTreeWidgetItem* BareItem(const TTreeNode& node)
    {
        auto* item = new QTreeWidgetItem(QStringList(node.Text()));
        for (int i = 0; i < node.Count(); ++i)
            item->addChild(BareItem(*node.Item(i)));
        return item;
    }
    static QString Components(int dataSets)
    {
        QString text;
        for (int i = 0; i < dataSets; ++i) {
            text += u"object Query%1: TZAQuery\n"_qs.arg(i);
            for (int field = 0; field < FieldsPerDataSet; ++field)
                text += u"object Query%1F%2: TStringField\nFieldName = 'F%2'\nSize = 20\nend\n"_qs.arg(i).arg(field);
            text += u"end\n"_qs;
        }
        return text;
    }
};

// The quickest of some rounds, so that a busy machine counts little.
template <class Work>
double Quickest(const Work& work)
{
    double best = 1e18;
    QElapsedTimer timer;
    for (int round = 0; round < Rounds; ++round) {
        timer.start();
        work();
        best = std::min(best, double(timer.nsecsElapsed()) / 1e6);
    }
    return best;
}

struct Figures {
    double Build = 0;
    double Draw = 0;
    double Bare = 0;
};

Figures Measure(int dataSets)
{
    const LargeProject project(dataSets);
    if (project.DataSets() != dataSets)
        qFatal("%d datasets instead of %d", project.DataSets(), dataSets);
    Figures figures;
    figures.Build = Quickest([&] { project.BuildList(); });
    figures.Draw = Quickest([&] { project.DrawTree(); });
    figures.Bare = Quickest([&] {
        QTreeWidget bare;
        LargeProject::FillBareTree(bare);
    });
    return figures;
}

const Figures& FiguresOf(int dataSets)
{
    static std::map<int, Figures> known;
    const auto found = known.find(dataSets);
    return found != known.end() ? found->second : known.emplace(dataSets, Measure(dataSets)).first->second;
}

// Twice the datasets in at most 2.3 times the time.
void BuildDataSetList(benchmark::State& state)
{
    for (auto _ : state) {
        state.counters["10000 ms"] = FiguresOf(10000).Build;
        state.counters["20000 ms"] = FiguresOf(20000).Build;
    }
    state.counters["ratio"] = FiguresOf(20000).Build / FiguresOf(10000).Build;
    if (FiguresOf(20000).Build > 2.3 * FiguresOf(10000).Build)
        state.SetLabel("MISSED: twice the datasets take more than 2.3 times the time");
}
BENCHMARK(BuildDataSetList)->Unit(benchmark::kMillisecond)->Iterations(1);

// The window's tree beside a bare tree of Qt with the same captions.
void DrawTreeBesideBareTree(benchmark::State& state)
{
    const auto dataSets = int(state.range(0));
    for (auto _ : state) {
        state.counters["draw ms"] = FiguresOf(dataSets).Draw;
        state.counters["bare ms"] = FiguresOf(dataSets).Bare;
    }
    state.counters["ratio"] = FiguresOf(dataSets).Draw / FiguresOf(dataSets).Bare;
    if (FiguresOf(dataSets).Draw > 2.5 * FiguresOf(dataSets).Bare)
        state.SetLabel("MISSED: more than 2.5 times a bare tree");
}
BENCHMARK(DrawTreeBesideBareTree)->Arg(10000)->Arg(20000)->Unit(benchmark::kMillisecond)->Iterations(1);

}

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
