#include "forms/FormConverter.h"

#include "forms/FormBinaryPrinter.h"
#include "forms/FormLexer.h"
#include "forms/FormSayable.h"
#include "forms/FormTree.h"
#include "forms/FormWriter.h"

#include <QSaveFile>

using namespace Qt::StringLiterals;

namespace {

constexpr int longestName = 255;

class BinaryForm {
public:
    explicit BinaryForm(const FormEncoding& encoding)
        : m_printer(encoding, FormBinaryPrinter::Reals::Extended)
    {
    }

    void add(const FormNode& node)
    {
        const auto& header = node.header();
        bytes += FormBinaryPrinter::header(node.kind(), header.index, header.className, header.name);
        for (const auto* property : node.properties())
            add(*property);
        bytes += '\0';
        if (node.kind() == FormNode::Kind::Item)
            return;
        for (const auto* child : node.children())
            add(*child);
        bytes += '\0';
    }

    QByteArray bytes = FormBinaryPrinter::signature;

private:
    void add(const FormProperty& property)
    {
        bytes += FormBinaryPrinter::shortString(property.nameBytes());
        if (!property.isCollection()) {
            bytes += m_printer.value(property.value());
            return;
        }
        bytes += static_cast<char>(BinaryType::Collection);
        for (const auto* item : property.items())
            add(*item);
        bytes += '\0';
    }

    FormBinaryPrinter m_printer;
};

class TextForm {
public:
    explicit TextForm(const FormTextStyle& style)
        : m_style(style)
        , m_printer(style)
    {
    }

    void add(const FormNode& node, const QByteArray& indent)
    {
        const auto& header = node.header();
        const FormNames names { node.kind(), header.className.toByteArray(), header.name.toByteArray(), header.index };
        bytes += indent + m_printer.header(names) + m_style.lineEnd;
        for (const auto* property : node.properties())
            add(*property, indent + m_style.step);
        for (const auto* child : node.children())
            add(*child, indent + m_style.step);
        bytes += indent + "end";
        if (node.kind() != FormNode::Kind::Item)
            bytes += m_style.lineEnd;
    }

    QByteArray bytes;

private:
    void add(const FormProperty& property, const QByteArray& indent)
    {
        bytes += indent + property.nameBytes().toByteArray() + " = ";
        if (property.isCollection())
            addItems(property, indent);
        else
            bytes += m_printer.value(property.value(), indent);
        bytes += m_style.lineEnd;
    }

    void addItems(const FormProperty& property, const QByteArray& indent)
    {
        bytes += '<';
        for (const auto* item : property.items()) {
            bytes += m_style.lineEnd;
            add(*item, indent + m_style.step);
        }
        bytes += '>';
    }

    const FormTextStyle& m_style;
    FormTextPrinter m_printer;
};

// Where a name is too long for a binary form.
std::optional<FormError> longName(const FormDocument& form)
{
    const auto& tree = form.tree();
    const auto bytes = form.bytes();
    FormLexer lexer(bytes, tree.prefix.size());
    FormToken last;
    qsizetype start = 0;
    bool dotted = false;
    for (auto token = lexer.next(); token.kind != FormToken::Kind::End && token.kind != FormToken::Kind::Error;
         token = lexer.next()) {
        if (token.kind == FormToken::Kind::Symbol) {
            start = dotted ? start : token.begin;
            if (token.end - start > longestName)
                return formErrorAt(bytes, tree.prefix.size(), tree.encoding, start,
                    u"a name of more than 255 bytes, for which a binary form has no room; shorten it"_s);
        }
        dotted = token.is('.') && last.kind == FormToken::Kind::Symbol;
        last = token;
    }
    return std::nullopt;
}

FormTextStyle styleFor(const QString& target, const FormEncoding& encoding)
{
    FormTextStyle style;
    style.encoding = encoding;
    if (target.endsWith(".lfm"_L1, Qt::CaseInsensitive)) {
        style.lineEnd = "\n";
        style.rawStrings = encoding.isUtf8();
        style.paddedReals = false;
        style.ownLineClose = true;
    }
    return style;
}

std::optional<FormError> save(const QString& path, const QByteArray& bytes)
{
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit())
        return std::nullopt;
    return FormError { path, 1, 1, 0,
        u"the file cannot be written (%1); see that its folder is there and may be written to"_s.arg(
            file.errorString()) };
}

}

FormResult<QByteArray> FormConverter::toBinary(const FormDocument& form)
{
    if (form.format() == FormFormat::Binary)
        return FormBinaryPrinter::signature + FormWriter::bytes(form.root());
    if (auto error = longName(form)) {
        error->file = form.fileName();
        return *error;
    }
    BinaryForm made(form.encoding());
    made.add(form.root());
    return made.bytes;
}

FormResult<QByteArray> FormConverter::toText(const FormDocument& form, const FormTextStyle& style)
{
    if (form.format() == FormFormat::Text)
        return form.bytes();
    if (const auto name = FormSayable::firstUnsayable(form.root()))
        return FormError { form.fileName(), 0, 0, 0,
            u"the name \"%1\" cannot be written in text; rename it, or leave the form binary"_s.arg(*name) };
    auto own = style;
    own.encoding = form.encoding();
    own.narrowBytes = true;
    TextForm made(own);
    made.add(form.root(), {});
    return made.bytes;
}

std::optional<FormError> FormConverter::convertFile(const QString& source, const QString& target)
{
    const auto form = FormDocument::load(source);
    if (!form)
        return form.error();
    const auto& document = *form.value();
    const auto bytes = document.format() == FormFormat::Binary ? toText(document, styleFor(target, document.encoding()))
                                                               : toBinary(document);
    return bytes ? save(target, bytes.value()) : bytes.error();
}
