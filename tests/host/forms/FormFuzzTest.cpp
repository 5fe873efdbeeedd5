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

constexpr qint64 budget = 4000; // milliseconds; a slow machine tries fewer
constexpr qsizetype largest = 30000; // bytes of a form to start from

QList<QByteArray> startingForms()
{
    QStringList paths;
    const QDir own(QStringLiteral(MORVANE_SOURCE_DIR "/tests/data/forms"));
    for (const auto& name : own.entryList(QDir::Files))
        paths << own.filePath(name);
    paths += Corpus::files({ u"*.dfm"_s, u"*.lfm"_s });
    QList<QByteArray> forms;
    for (const auto& path : paths) {
        QFile file(path);
        if (file.open(QIODevice::ReadOnly) && file.size() <= largest)
            forms << file.readAll();
    }
    return forms;
}

class Mutator {
public:
    explicit Mutator(unsigned seed)
        : m_random(seed)
    {
    }

    size_t below(size_t limit) { return limit ? m_random() % limit : 0; }

    QByteArray mutate(QByteArray bytes)
    {
        for (auto count = 1 + below(4); count > 0 && !bytes.isEmpty(); --count)
            once(bytes);
        return bytes;
    }

private:
    void once(QByteArray& bytes)
    {
        static const QList<QByteArray> tokens { "object ", "inherited ", "end", "item", "<", ">", "(", ")", "[", "]",
            "{", "}", "'", "#", "+", "=", ":", ".", "$", "-", "1.5", "\r", "\n", "TPF0", "\xFF\x0A",
            QByteArray(1, '\0'), "\xFF\xFF\xFF\xFF", "\xEF\xBB\xBF", "\xE4" };
        const auto at = qsizetype(below(size_t(bytes.size())));
        const auto length = qsizetype(below(40));
        switch (below(7)) {
        case 0:
            bytes[at] = char(m_random());
            break;
        case 1:
            bytes.remove(at, length);
            break;
        case 2:
            bytes.insert(at, bytes.mid(qsizetype(below(size_t(bytes.size()))), length));
            break;
        case 3:
            bytes.truncate(at);
            break;
        case 4:
            bytes[at] = char(bytes[at] ^ (1 << below(8)));
            break;
        default:
            bytes.insert(at, tokens[qsizetype(below(size_t(tokens.size())))]);
        }
    }

    std::mt19937 m_random;
};

qsizetype walk(const FormNode& node)
{
    qsizetype size = node.name().size() + node.className().size();
    for (const auto* property : node.properties())
        size += property->name().size() + property->value().spelling().size();
    for (const auto* child : node.children())
        size += walk(*child);
    return size;
}

void tryForm(const QByteArray& bytes)
{
    const auto read = FormDocument::read(bytes, { u"F.dfm"_s });
    if (!read) {
        EXPECT_FALSE(read.error().message.isEmpty());
        EXPECT_GE(read.error().offset, 0);
        EXPECT_LE(read.error().offset, bytes.size());
        return;
    }
    auto& form = *read.value();
    EXPECT_EQ(form.bytes(), bytes);
    walk(form.root());
    const auto other
        = form.format() == FormFormat::Text ? FormConverter::toBinary(form) : FormConverter::toText(form, {});
    form.setProperty(form.root(), u"Caption"_s, FormValue::string(u"changed"_s));
    form.addChild(form.root(), FormNode::Kind::Object, u"TNew"_s, u"New"_s);
    EXPECT_TRUE(FormDocument::read(form.bytes()));
    form.undoTo(0);
    EXPECT_EQ(form.bytes(), bytes);
    if (!other)
        return;
    const auto again = FormDocument::read(other.value());
    EXPECT_TRUE(again) << qPrintable(again.error().toString());
}

}

TEST(FormFuzz, ReadsOrRefusesEveryMutatedForm)
{
    const auto seed = unsigned(qEnvironmentVariableIntValue("MORVANE_FUZZ_SEED"));
    std::cout << "seed " << seed << " (MORVANE_FUZZ_SEED names another one)\n";
    const auto forms = startingForms();
    ASSERT_FALSE(forms.isEmpty());
    QElapsedTimer timer;
    timer.start();
    int count = 0;
    while (count < 20000 && timer.elapsed() < budget && !testing::Test::HasFailure()) {
        Mutator mutator(seed + unsigned(count++));
        const auto bytes = mutator.mutate(forms[qsizetype(mutator.below(size_t(forms.size())))]);
        tryForm(bytes);
        if (testing::Test::HasFailure())
            std::cout << "failed for seed " << seed << " at " << count << ": " << bytes.toPercentEncoding().constData()
                      << '\n';
    }
    std::cout << count << " forms tried\n";
}
