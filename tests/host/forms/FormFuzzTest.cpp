#include "forms/FormConverter.h"
#include "forms/FormDocument.h"

#include "support/Corpus.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>

#include <gtest/gtest.h>

#include <random>

using namespace Qt::StringLiterals;

// Forms with bytes changed, taken out, doubled and swapped. Whatever comes of it either reads, and is then written
// back as it was and can be walked and converted, or is refused with a place and a message.

namespace {

constexpr qint64 Budget = 4000; // milliseconds; a slow machine tries fewer
constexpr qsizetype Largest = 30000; // bytes of a form to start from

QList<QByteArray> StartingForms()
{
    QStringList paths;
    const QDir own(QStringLiteral(MORVANE_SOURCE_DIR "/tests/data/forms"));
    for (const auto& name : own.entryList(QDir::Files))
        paths << own.filePath(name);
    paths += Corpus::files({ u"*.dfm"_s, u"*.lfm"_s });
    QList<QByteArray> forms;
    for (const auto& path : paths) {
        QFile file(path);
        if (file.open(QIODevice::ReadOnly) && file.size() <= Largest)
            forms << file.readAll();
    }
    return forms;
}

class Mutator {
public:
    explicit Mutator(unsigned seed)
        : FRandom(seed)
    {
    }

    size_t Below(size_t limit) { return limit ? FRandom() % limit : 0; }

    QByteArray Mutate(QByteArray bytes)
    {
        for (auto count = 1 + Below(4); count > 0 && !bytes.isEmpty(); --count)
            Once(bytes);
        return bytes;
    }

private:
    void Once(QByteArray& bytes)
    {
        static const QList<QByteArray> tokens { "object ", "inherited ", "end", "item", "<", ">", "(", ")", "[", "]",
            "{", "}", "'", "#", "+", "=", ":", ".", "$", "-", "1.5", "\r", "\n", "TPF0", "\xFF\x0A",
            QByteArray(1, '\0'), "\xFF\xFF\xFF\xFF", "\xEF\xBB\xBF", "\xE4" };
        const auto at = qsizetype(Below(size_t(bytes.size())));
        const auto length = qsizetype(Below(40));
        switch (Below(7)) {
        case 0:
            bytes[at] = char(FRandom());
            break;
        case 1:
            bytes.remove(at, length);
            break;
        case 2:
            bytes.insert(at, bytes.mid(qsizetype(Below(size_t(bytes.size()))), length));
            break;
        case 3:
            bytes.truncate(at);
            break;
        case 4:
            bytes[at] = char(bytes[at] ^ (1 << Below(8)));
            break;
        default:
            bytes.insert(at, tokens[qsizetype(Below(size_t(tokens.size())))]);
        }
    }

    std::mt19937 FRandom;
};

qsizetype Walk(const FormNode& node)
{
    qsizetype size = node.Name().size() + node.ClassName().size();
    for (const auto* property : node.Properties())
        size += property->Name().size() + property->Value().Spelling().size();
    for (const auto* child : node.Children())
        size += Walk(*child);
    return size;
}

void TryForm(const QByteArray& bytes)
{
    const auto read = FormDocument::Read(bytes, { u"F.dfm"_s });
    if (!read) {
        EXPECT_FALSE(read.Error().Message.isEmpty());
        EXPECT_GE(read.Error().Offset, 0);
        EXPECT_LE(read.Error().Offset, bytes.size());
        return;
    }
    auto& form = *read.Value();
    EXPECT_EQ(form.Bytes(), bytes);
    Walk(form.Root());
    const auto other
        = form.Format() == FormFormat::Text ? FormConverter::ToBinary(form) : FormConverter::ToText(form, {});
    form.SetProperty(form.Root(), u"Caption"_s, FormValue::String(u"changed"_s));
    form.AddChild(form.Root(), FormNode::Kind::Object, u"TNew"_s, u"New"_s);
    EXPECT_TRUE(FormDocument::Read(form.Bytes()));
    form.UndoTo(0);
    EXPECT_EQ(form.Bytes(), bytes);
    if (!other)
        return;
    const auto again = FormDocument::Read(other.Value());
    EXPECT_TRUE(again) << qPrintable(again.Error().ToString());
}

}

TEST(FormFuzz, ReadsOrRefusesEveryMutatedForm)
{
    const auto seed = unsigned(qEnvironmentVariableIntValue("MORVANE_FUZZ_SEED"));
    std::cout << "seed " << seed << " (MORVANE_FUZZ_SEED names another one)\n";
    const auto forms = StartingForms();
    ASSERT_FALSE(forms.isEmpty());
    QElapsedTimer timer;
    timer.start();
    int count = 0;
    while (count < 20000 && timer.elapsed() < Budget && !testing::Test::HasFailure()) {
        Mutator mutator(seed + unsigned(count++));
        const auto bytes = mutator.Mutate(forms[qsizetype(mutator.Below(size_t(forms.size())))]);
        TryForm(bytes);
        if (testing::Test::HasFailure())
            std::cout << "failed for seed " << seed << " at " << count << ": " << bytes.toPercentEncoding().constData()
                      << '\n';
    }
    std::cout << count << " forms tried\n";
}
