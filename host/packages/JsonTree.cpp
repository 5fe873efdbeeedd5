#include "packages/JsonTree.h"

#include <QSet>

#include <rapidjson/error/en.h>
#include <rapidjson/memorystream.h>
#include <rapidjson/reader.h>

#include <vector>

const JsonValue* JsonValue::Find(QLatin1String name) const
{
    for (const auto& member : Members)
        if (member.Name == name)
            return &member.Value;
    return nullptr;
}

QString JsonValue::KindName(Kind kind)
{
    switch (kind) {
    case Null:
        return QStringLiteral("null");
    case Boolean:
        return QStringLiteral("true or false");
    case Number:
        return QStringLiteral("a number");
    case Text:
        return QStringLiteral("a text");
    case Array:
        return QStringLiteral("a list");
    case Object:
        return QStringLiteral("an object");
    }
    return {};
}

namespace {

// Takes the parser's events and builds the values, innermost last.
class Builder {
public:
    Builder(const rapidjson::MemoryStream& stream, const QByteArray& bytes)
        : FStream(stream)
        , FBytes(bytes)
    {
    }

    bool Null() { return Add(Made(JsonValue::Null)); }
    bool Bool(bool value)
    {
        auto made = Made(JsonValue::Boolean);
        made.Flag = value;
        return Add(std::move(made));
    }
    bool Int(int value) { return Double(value); }
    bool Uint(unsigned value) { return Double(value); }
    bool Int64(int64_t value) { return Double(double(value)); }
    bool Uint64(uint64_t value) { return Double(double(value)); }
    bool Double(double value)
    {
        auto made = Made(JsonValue::Number);
        made.Value = value;
        return Add(std::move(made));
    }
    bool RawNumber(const char*, rapidjson::SizeType, bool) { return false; }
    bool String(const char* text, rapidjson::SizeType length, bool)
    {
        auto made = Made(JsonValue::Text);
        made.String = QString::fromUtf8(text, length);
        made.Offset = QuoteBefore(made.Offset);
        return Add(std::move(made));
    }
    bool StartObject() { return Open(JsonValue::Object); }
    bool StartArray() { return Open(JsonValue::Array); }
    bool EndObject(rapidjson::SizeType) { return Close(); }
    bool EndArray(rapidjson::SizeType) { return Close(); }
    bool Key(const char* text, rapidjson::SizeType length, bool)
    {
        auto& open = FOpen.back();
        const auto name = QString::fromUtf8(text, length);
        open.Doubled = open.Names.contains(name);
        if (open.Doubled)
            Twice.append({ name, QuoteBefore(Here()) });
        open.Names.insert(name);
        open.Key = { name, {}, QuoteBefore(Here()) };
        return true;
    }

    std::optional<JsonValue> Root;
    QList<std::pair<QString, qsizetype>> Twice;
    bool TooDeep = false;

private:
    struct Level {
        JsonValue Value;
        QSet<QString> Names;
        JsonValue::Member Key;
        bool Doubled = false;
    };

    // The reader stands behind what it has just taken.
    qsizetype Here() const { return qMax(qsizetype(0), qsizetype(FStream.Tell()) - 1); }
    // The quote that opens the text which the quote at `closing` closes.
    qsizetype QuoteBefore(qsizetype closing) const
    {
        auto quote = closing;
        bool isEscaped = true;
        while (quote > 0 && isEscaped) {
            quote = FBytes.lastIndexOf('"', quote - 1);
            auto slash = quote;
            while (slash > 0 && FBytes[slash - 1] == '\\')
                --slash;
            isEscaped = (quote - slash) % 2 == 1;
        }
        return qMax(qsizetype(0), quote);
    }
    JsonValue Made(JsonValue::Kind kind) const
    {
        JsonValue made;
        made.Type = kind;
        made.Offset = Here();
        return made;
    }
    bool Open(JsonValue::Kind kind)
    {
        TooDeep = FOpen.size() >= JsonTree::DeepestLevel;
        if (!TooDeep)
            FOpen.push_back({ Made(kind), {}, {}, false });
        return !TooDeep;
    }
    bool Close()
    {
        auto value = std::move(FOpen.back().Value);
        FOpen.pop_back();
        return Add(std::move(value));
    }
    bool Add(JsonValue value)
    {
        if (FOpen.empty()) {
            Root = std::move(value);
            return true;
        }
        auto& open = FOpen.back();
        if (open.Value.Type == JsonValue::Array) {
            open.Value.Items.append(std::move(value));
        } else if (!open.Doubled) {
            open.Key.Value = std::move(value);
            open.Value.Members.append(std::move(open.Key));
        }
        return true;
    }

    const rapidjson::MemoryStream& FStream;
    const QByteArray& FBytes;
    std::vector<Level> FOpen;
};

}

JsonTree::JsonTree(const QString& fileName, const QByteArray& bytes, Problems& problems)
    : FFileName(fileName)
    , FBytes(bytes)
{
    rapidjson::MemoryStream stream(FBytes.constData(), size_t(FBytes.size()));
    Builder builder(stream, FBytes);
    rapidjson::Reader reader;
    constexpr auto flags = rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag;
    const auto result = reader.Parse<flags>(stream, builder);
    if (result.IsError()) {
        const auto why = builder.TooDeep ? QStringLiteral("Nested too deep for a catalogue")
                                         : QString::fromLatin1(rapidjson::GetParseError_En(result.Code()));
        problems << ProblemAt(qsizetype(result.Offset()), why, Problem::Error);
        return;
    }
    for (const auto& [name, offset] : builder.Twice)
        problems << ProblemAt(offset, QStringLiteral("'%1' stands here a second time").arg(name));
    FRoot = std::move(builder.Root);
}

Problem JsonTree::ProblemAt(qsizetype offset, const QString& text, Problem::Kind severity) const
{
    const auto before = FBytes.left(offset);
    const auto lineStart = before.lastIndexOf('\n') + 1;
    const auto column = QString::fromUtf8(before.mid(lineStart)).size() + 1;
    return { FFileName, int(before.count('\n')) + 1, int(column), text, severity };
}
