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

constexpr int rounds = 20;
const QString peer = QStringLiteral(MORVANE_BIN_DIR "/formpeer");

QStringList allFiles()
{
    const QStringList patterns { QStringLiteral("*.dfm"), QStringLiteral("*.lfm"), QStringLiteral("*.fmx") };
    auto found = Corpus::files(patterns);
    const QDir own(QStringLiteral(MORVANE_SOURCE_DIR "/tests/data/forms"));
    if (found.isEmpty())
        for (const auto& name : own.entryList(QDir::Files))
            found << own.filePath(name);
    return found;
}

void writeLines(const QString& path, const QStringList& lines)
{
    QFile file(path);
    if (file.open(QIODevice::WriteOnly))
        file.write(lines.join(u'\n').toUtf8() + '\n');
}

QByteArray runPeer(const QStringList& arguments)
{
    QProcess process;
    process.start(peer, arguments);
    process.waitForFinished(-1);
    return process.readAllStandardOutput();
}

// The files that the peer reads, too.
QStringList commonFiles(const QTemporaryDir& folder)
{
    const auto all = allFiles();
    if (!QFile::exists(peer))
        return all;
    QStringList pairs;
    for (const auto& file : all)
        pairs << file + u'\t' + folder.filePath(QStringLiteral("out"));
    writeLines(folder.filePath(QStringLiteral("pairs")), pairs);
    const auto answers = runPeer({ QStringLiteral("convert"), folder.filePath(QStringLiteral("pairs")) }).split('\n');
    QStringList common;
    for (qsizetype i = 0; i < all.size(); ++i)
        if (answers.value(i) == "ok")
            common << all[i];
    return common;
}

const QStringList& files()
{
    static const QStringList found = commonFiles(QTemporaryDir());
    return found;
}

double bytesOfAll()
{
    double sum = 0;
    for (const auto& file : files())
        sum += double(QFile(file).size());
    return sum;
}

void setRates(benchmark::State& state)
{
    state.counters["files/s"]
        = benchmark::Counter(double(files().size()), benchmark::Counter::kIsIterationInvariantRate);
    state.counters["bytes/s"] = benchmark::Counter(bytesOfAll(), benchmark::Counter::kIsIterationInvariantRate);
}

void readAll()
{
    for (const auto& file : files())
        benchmark::DoNotOptimize(FormDocument::load(file));
}

void ReadForms(benchmark::State& state)
{
    for (auto _ : state)
        readAll();
    setRates(state);
}
BENCHMARK(ReadForms)->Unit(benchmark::kMillisecond);

void ReadAndWriteForms(benchmark::State& state)
{
    for (auto _ : state)
        for (const auto& file : files())
            benchmark::DoNotOptimize(FormDocument::load(file).value()->bytes());
    setRates(state);
}
BENCHMARK(ReadAndWriteForms)->Unit(benchmark::kMillisecond);

void ConvertForms(benchmark::State& state)
{
    for (auto _ : state)
        for (const auto& file : files())
            benchmark::DoNotOptimize(FormConverter::toBinary(*FormDocument::load(file).value()));
    setRates(state);
}
BENCHMARK(ConvertForms)->Unit(benchmark::kMillisecond);

// Twice as long a form takes twice as long to read.
void ReadLongForm(benchmark::State& state)
{
    const QByteArray child = "  object Edit1: TEdit\n    Left = 10\n    Caption = 'Some text'\n  end\n";
    const auto form = "object Form1: TForm1\n" + child.repeated(state.range(0)) + "end\n";
    for (auto _ : state)
        benchmark::DoNotOptimize(FormDocument::read(form));
    state.SetComplexityN(state.range(0));
}
BENCHMARK(ReadLongForm)->RangeMultiplier(2)->Range(1 << 10, 1 << 17)->Complexity(benchmark::oN);

// Both in turn, so that a busy machine slows both alike; "ratio" is how many times as fast ours is.
void BesideStreamReader(benchmark::State& state)
{
    if (!QFile::exists(peer)) {
        state.SkipWithError("formpeer was not built: the compiler that brings the stream reader is missing");
        return;
    }
    double ours = 0;
    double theirs = 0;
    const QTemporaryDir folder;
    writeLines(folder.filePath(QStringLiteral("files")), files());
    for (auto _ : state) {
        QElapsedTimer timer;
        timer.start();
        for (int round = 0; round < rounds; ++round)
            readAll();
        ours += double(timer.nsecsElapsed());
        const auto answer
            = runPeer({ QStringLiteral("bench"), folder.filePath(QStringLiteral("files")), QString::number(rounds) })
                  .simplified()
                  .split(' ');
        theirs += answer.value(2).toDouble();
    }
    const auto count = double(files().size()) * rounds * double(state.iterations());
    state.counters["ours files/s"] = count / (ours * 1e-9);
    state.counters["peer files/s"] = count / (theirs * 1e-9);
    state.counters["ratio"] = theirs / ours;
}
BENCHMARK(BesideStreamReader)->Unit(benchmark::kMillisecond)->Iterations(3)->Repetitions(3);

}

BENCHMARK_MAIN();
