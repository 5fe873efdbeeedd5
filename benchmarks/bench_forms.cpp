// How many form files are read in a second, beside a compiler's own stream reader on the same files in the same run.
// Every file is opened, read and taken apart anew each time. The files are the corpus, or the forms in tests/data.

#include "forms/FormConverter.h"
#include "forms/FormDocument.h"
#include "support/Corpus.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

namespace {

constexpr int Rounds = 20;
const QString Peer = QStringLiteral(MORVANE_BIN_DIR "/formpeer");

QStringList AllFiles()
{
    const QStringList patterns { QStringLiteral("*.dfm"), QStringLiteral("*.lfm"), QStringLiteral("*.fmx") };
    auto found = Corpus::files(patterns);
    const QDir own(QStringLiteral(MORVANE_SOURCE_DIR "/tests/data/forms"));
    if (found.isEmpty())
        for (const auto& name : own.entryList(QDir::Files))
            found << own.filePath(name);
    return found;
}

void WriteLines(const QString& path, const QStringList& lines)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(lines.join(u'\n').toUtf8() + '\n');
}

QByteArray RunPeer(const QStringList& arguments)
{
    QProcess process;
    process.start(Peer, arguments);
    process.waitForFinished(-1);
    return process.readAllStandardOutput();
}

// The files that the peer reads, too.
QStringList CommonFiles(const QTemporaryDir& folder)
{
    const auto all = AllFiles();
    if (!QFile::exists(Peer))
        return all;
    QStringList pairs;
    for (const auto& file : all)
        pairs << file + u'\t' + folder.filePath(QStringLiteral("out"));
    WriteLines(folder.filePath(QStringLiteral("pairs")), pairs);
    const auto answers = RunPeer({ QStringLiteral("convert"), folder.filePath(QStringLiteral("pairs")) }).split('\n');
    QStringList common;
    for (qsizetype i = 0; i < all.size(); ++i)
        if (answers.value(i) == "ok")
            common << all[i];
    return common;
}

const QStringList& Files()
{
    static const QStringList found = CommonFiles(QTemporaryDir());
    return found;
}

double BytesOfAll()
{
    double sum = 0;
    for (const auto& file : Files())
        sum += double(QFile(file).size());
    return sum;
}

void SetRates(benchmark::State& state)
{
    state.counters["files/s"]
        = benchmark::Counter(double(Files().size()), benchmark::Counter::kIsIterationInvariantRate);
    state.counters["bytes/s"] = benchmark::Counter(BytesOfAll(), benchmark::Counter::kIsIterationInvariantRate);
}

void ReadAll()
{
    for (const auto& file : Files())
        benchmark::DoNotOptimize(FormDocument::Load(file));
}

void ReadForms(benchmark::State& state)
{
    for (auto _ : state)
        ReadAll();
    SetRates(state);
}
BENCHMARK(ReadForms)->Unit(benchmark::kMillisecond);

void ReadAndWriteForms(benchmark::State& state)
{
    for (auto _ : state)
        for (const auto& file : Files())
            benchmark::DoNotOptimize(FormDocument::Load(file).Value()->Bytes());
    SetRates(state);
}
BENCHMARK(ReadAndWriteForms)->Unit(benchmark::kMillisecond);

void ConvertForms(benchmark::State& state)
{
    for (auto _ : state)
        for (const auto& file : Files())
            benchmark::DoNotOptimize(FormConverter::ToBinary(*FormDocument::Load(file).Value()));
    SetRates(state);
}
BENCHMARK(ConvertForms)->Unit(benchmark::kMillisecond);

// Twice as long a form takes twice as long to read.
void ReadLongForm(benchmark::State& state)
{
    const QByteArray child = "  object Edit1: TEdit\n    Left = 10\n    Caption = 'Some text'\n  end\n";
    const auto form = "object Form1: TForm1\n" + child.repeated(state.range(0)) + "end\n";
    for (auto _ : state)
        benchmark::DoNotOptimize(FormDocument::Read(form));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(ReadLongForm)->RangeMultiplier(2)->Range(1 << 10, 1 << 17)->Complexity(benchmark::oN);

// Both in turn, so that a busy machine slows both alike; "ratio" is how many times as fast ours is.
void BesideStreamReader(benchmark::State& state)
{
    if (!QFile::exists(Peer)) {
        state.SkipWithError("formpeer was not built: the compiler that brings the stream reader is missing");
        return;
    }
    double ours = 0;
    double theirs = 0;
    const QTemporaryDir folder;
    WriteLines(folder.filePath(QStringLiteral("files")), Files());
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        for (int round = 0; round < Rounds; ++round)
            ReadAll();
        ours += double(timer.nsecsElapsed());
        const auto answer
            = RunPeer({ QStringLiteral("bench"), folder.filePath(QStringLiteral("files")), QString::number(Rounds) })
                  .simplified()
                  .split(' ');
        theirs += answer.value(2).toDouble();
    }
    const auto count = double(Files().size()) * Rounds * double(state.iterations());
    state.counters["ours files/s"] = count / (ours * 1e-9);
    state.counters["peer files/s"] = count / (theirs * 1e-9);
    state.counters["ratio"] = theirs / ours;
}
BENCHMARK(BesideStreamReader)->Unit(benchmark::kMillisecond)->Iterations(3)->Repetitions(3);

}

BENCHMARK_MAIN();
