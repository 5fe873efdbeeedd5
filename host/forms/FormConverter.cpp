#include "forms/FormConverter.h"

#include "forms/FormBinaryPrinter.h"
#include "forms/FormLexer.h"
#include "forms/FormSayable.h"
#include "forms/FormTree.h"
#include "forms/FormWriter.h"

#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

constexpr int LongestName = 255;

class BinaryForm {
public:
    explicit BinaryForm(const FormEncoding& encoding)
        : FPrinter(encoding, FormBinaryPrinter::Reals::Extended)
    {
    }

    void Add(const FormNode& node)
    {
        const auto& header = node.TheHeader();
        Bytes += FormBinaryPrinter::Header(node.TheKind(), header.Index, header.ClassName, header.Name);
        for (const auto* property : node.Properties())
            Add(*property);
        Bytes += '\0';
        if (node.TheKind() == FormNode::Kind::Item)
            return;
        for (const auto* child : node.Children())
            Add(*child);
        Bytes += '\0';
    }

    QByteArray Bytes = FormBinaryPrinter::Signature;

private:
    void Add(const FormProperty& property)
    {
        Bytes += FormBinaryPrinter::ShortString(property.NameBytes());
        if (!property.IsCollection()) {
            Bytes += FPrinter.Value(property.Value());
            return;
        }
        Bytes += static_cast<char>(BinaryType::Collection);
        for (const auto* item : property.Items())
            Add(*item);
        Bytes += '\0';
    }

    FormBinaryPrinter FPrinter;
};

class TextForm {
public:
    explicit TextForm(const FormTextStyle& style)
        : FStyle(style)
        , FPrinter(style)
    {
    }

    void Add(const FormNode& node, const QByteArray& indent)
    {
        const auto& header = node.TheHeader();
        const FormNames names { node.TheKind(), header.ClassName.toByteArray(), header.Name.toByteArray(),
            header.Index };
        Bytes += indent + FPrinter.header(names) + FStyle.LineEnd;
        for (const auto* property : node.Properties())
            Add(*property, indent + FStyle.Step);
        for (const auto* child : node.Children())
            Add(*child, indent + FStyle.Step);
        Bytes += indent + "end";
        if (node.TheKind() != FormNode::Kind::Item)
            Bytes += FStyle.LineEnd;
    }

    QByteArray Bytes;

private:
    void Add(const FormProperty& property, const QByteArray& indent)
    {
        Bytes += indent + property.NameBytes().toByteArray() + " = ";
        if (property.IsCollection())
            AddItems(property, indent);
        else
            Bytes += FPrinter.Value(property.Value(), indent);
        Bytes += FStyle.LineEnd;
    }

    void AddItems(const FormProperty& property, const QByteArray& indent)
    {
        Bytes += '<';
        for (const auto* item : property.Items()) {
            Bytes += FStyle.LineEnd;
            Add(*item, indent + FStyle.Step);
        }
        Bytes += '>';
    }

    const FormTextStyle& FStyle;
    FormTextPrinter FPrinter;
};

// Where a name is too long for a binary form.
std::optional<FormError> LongName(const FormDocument& form)
{
    const auto& tree = form.Tree();
    const auto bytes = form.Bytes();
    FormLexer lexer(bytes, tree.Prefix.size());
    FormToken last;
    qsizetype start = 0;
    bool dotted = false;
    for (auto token = lexer.Next(); token.Type != FormToken::Kind::End && token.Type != FormToken::Kind::Error;
         token = lexer.Next()) {
        if (token.Type == FormToken::Kind::Symbol) {
            start = dotted ? start : token.Begin;
            if (token.End - start > LongestName)
                return FormErrorAt(bytes, tree.Prefix.size(), tree.Encoding, start,
                    u"a name of more than 255 bytes, for which a binary form has no room; shorten it"_s);
        }
        dotted = token.Is('.') && last.Type == FormToken::Kind::Symbol;
        last = token;
    }
    return std::nullopt;
}

FormTextStyle StyleFor(const QString& target, const FormEncoding& encoding)
{
    FormTextStyle style;
    style.Encoding = encoding;
    if (target.endsWith(".lfm"_L1, Qt::CaseInsensitive)) {
        style.LineEnd = "\n";
        style.RawStrings = encoding.IsUtf8();
        style.PaddedReals = false;
        style.OwnLineClose = true;
    }
    return style;
}

// A disk that fills up takes the first part and refuses the rest.
bool WriteWhole(QIODevice& device, QByteArrayView bytes)
{
    while (!bytes.isEmpty()) {
        const auto written = device.write(bytes.data(), bytes.size());
        if (written <= 0)
            return false;
        bytes = bytes.sliced(written);
    }
    return true;
}

std::optional<FormError> Save(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    // Unbuffered: a commit tells nothing of what was buffered and did not fit.
    if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && WriteWhole(file, bytes) && file.commit())
        return std::nullopt;
    return FormError { path, 1, 1, 0,
        u"the file cannot be written (%1); see that its folder is there and may be written to"_s.arg(
            file.errorString()) };
}

}

FormResult<QByteArray> FormConverter::ToBinary(const FormDocument& form)
{
    if (form.Format() == FormFormat::Binary)
        return FormBinaryPrinter::Signature + FormWriter::Bytes(form.Root());
    if (auto error = LongName(form)) {
        error->File = form.FileName();
        return *error;
    }
    BinaryForm made(form.Encoding());
    made.Add(form.Root());
    return made.Bytes;
}

FormResult<QByteArray> FormConverter::ToText(const FormDocument& form, const FormTextStyle& style)
{
    if (form.Format() == FormFormat::Text)
        return form.Bytes();
    if (const auto name = FormSayable::FirstUnsayable(form.Root()))
        return FormError { form.FileName(), 0, 0, 0,
            u"the name \"%1\" cannot be written in text; rename it, or leave the form binary"_s.arg(*name) };
    auto own = style;
    own.Encoding = form.Encoding();
    own.NarrowBytes = true;
    TextForm made(own);
    made.Add(form.Root(), {});
    return made.Bytes;
}

std::optional<FormError> FormConverter::ConvertFile(const QString& source, const QString& target)
{
    const auto form = FormDocument::Load(source);
    if (!form)
        return form.Error();
    const auto& document = *form.Value();
    const auto bytes = document.Format() == FormFormat::Binary ? ToText(document, StyleFor(target, document.Encoding()))
                                                               : ToBinary(document);
    return bytes ? Save(target, bytes.Value()) : bytes.Error();
}
