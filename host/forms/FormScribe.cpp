#include "forms/FormScribe.h"

#include "forms/FormBinaryPrinter.h"
#include "forms/FormLexer.h"

namespace {

bool endsLine(QByteArrayView bytes)
{
    return bytes.endsWith('\n') || bytes.endsWith('\r');
}

class FormTextScribe : public FormScribe {
public:
    explicit FormTextScribe(FormTextStyle style)
        : m_style(std::move(style))
        , m_printer(m_style)
    {
    }

    Spelled newProperty(const FormNode& owner, const QByteArray& name, const FormValue& value) const override
    {
        const auto indent = propertyIndent(owner);
        Spelled made = spell(value, indent);
        made.nameAt = indent.size();
        made.lead = indent + name + " = ";
        made.trail = m_style.lineEnd;
        if (!endsLine(lastOfBody(owner)))
            startLine(made);
        return made;
    }

    Spelled newValue(const FormProperty& property, const FormValue& value) const override
    {
        return spell(value, formIndentOf(property.pieces().lead));
    }

    QByteArrayView leadFor(QByteArrayView lead) const override
    {
        auto end = lead.lastIndexOf('=') + 1;
        const auto behind = lead.sliced(end);
        if (!behind.contains('\n') && !behind.contains('\r'))
            return lead;
        while (end < lead.size() && (lead[end] == ' ' || lead[end] == '\t'))
            ++end;
        return lead.first(end);
    }

    QByteArray newHeader(const QByteArray& indent, const FormNames& names) const override
    {
        const auto before = names.kind == FormNode::Kind::Item ? m_style.lineEnd : QByteArray();
        return before + indent + m_printer.header(names) + m_style.lineEnd;
    }

    Frame newFrame(const QByteArray& indent, FormNode::Kind kind) const override
    {
        return { {}, indent + "end" + (kind == FormNode::Kind::Item ? QByteArray() : m_style.lineEnd) };
    }

    QByteArray changedHeader(const FormNode& node, const FormNames& names) const override
    {
        const auto bytes = node.header().bytes;
        FormLexer lexer(bytes);
        const auto word = lexer.next();
        auto last = word.end;
        for (auto token = lexer.next(); token.kind != FormToken::Kind::End; token = lexer.next())
            last = token.end;
        const auto before = bytes.first(word.begin).toByteArray();
        return before + m_printer.header(names) + bytes.sliced(last).toByteArray();
    }

    FormNode::Header locate(QByteArrayView header, const FormNames& names) const override
    {
        FormNode::Header made { header, {}, {}, names.index };
        FormLexer lexer(header);
        auto at = lexer.next().end;
        if (!names.name.isEmpty()) {
            at = header.indexOf(names.name, at);
            made.name = header.sliced(at, names.name.size());
            at += names.name.size();
        }
        if (!names.className.isEmpty())
            made.className = header.sliced(header.indexOf(names.className, at), names.className.size());
        return made;
    }

    QByteArray childIndent(const FormNode& parent) const override
    {
        if (!parent.children().empty())
            return formIndentOf(parent.children().back()->header().bytes);
        return propertyIndent(parent);
    }

    QByteArray itemIndent(const FormProperty& collection) const override
    {
        if (!collection.items().empty())
            return formIndentOf(collection.items().back()->header().bytes);
        return formIndentOf(collection.pieces().lead) + m_style.step;
    }

    QByteArray gap(QByteArrayView before, QByteArrayView after) const override
    {
        const bool apart = before.isEmpty() || after.isEmpty() || FormLexer::isBlank(before.back())
            || FormLexer::isBlank(after.front());
        return apart ? QByteArray() : m_style.lineEnd;
    }

    bool indents() const override { return true; }

private:
    void startLine(Spelled& property) const
    {
        property.lead.prepend(m_style.lineEnd);
        property.nameAt += m_style.lineEnd.size();
    }

    QByteArray propertyIndent(const FormNode& owner) const
    {
        if (!owner.properties().empty())
            return formIndentOf(owner.properties().back()->pieces().lead);
        return formIndentOf(owner.header().bytes) + m_style.step;
    }

    static QByteArrayView lastOfBody(const FormNode& owner)
    {
        if (owner.properties().empty())
            return owner.header().bytes;
        return owner.properties().back()->pieces().trail;
    }

    Spelled spell(const FormValue& value, const QByteArray& indent) const
    {
        if (value.kind() == FormValue::Kind::Collection)
            return { {}, 0, "<", ">", {} };
        return { {}, 0, m_printer.value(value, indent), {}, {} };
    }

    FormTextStyle m_style;
    FormTextPrinter m_printer;
};

class FormBinaryScribe : public FormScribe {
public:
    explicit FormBinaryScribe(const FormEncoding& encoding)
        : m_printer(encoding)
    {
    }

    Spelled newProperty(const FormNode&, const QByteArray& name, const FormValue& value) const override
    {
        auto made = spell(value);
        made.lead = FormBinaryPrinter::shortString(name);
        made.nameAt = 1;
        return made;
    }

    Spelled newValue(const FormProperty&, const FormValue& value) const override { return spell(value); }

    QByteArrayView leadFor(QByteArrayView lead) const override { return lead; }

    QByteArray newHeader(const QByteArray&, const FormNames& names) const override
    {
        return FormBinaryPrinter::header(names.kind, names.index, names.className, names.name);
    }

    Frame newFrame(const QByteArray&, FormNode::Kind kind) const override
    {
        const QByteArray zero(1, '\0');
        return { kind == FormNode::Kind::Item ? QByteArray() : zero, zero };
    }

    QByteArray changedHeader(const FormNode&, const FormNames& names) const override { return newHeader({}, names); }

    FormNode::Header locate(QByteArrayView header, const FormNames& names) const override
    {
        FormNode::Header made { header, {}, {}, names.index };
        if (names.kind == FormNode::Kind::Item)
            return made;
        const auto name = std::min<qsizetype>(names.name.size(), 255);
        const auto className = std::min<qsizetype>(names.className.size(), 255);
        made.name = header.last(name);
        made.className = header.sliced(header.size() - name - 1 - className, className);
        return made;
    }

    QByteArray childIndent(const FormNode&) const override { return {}; }
    QByteArray itemIndent(const FormProperty&) const override { return {}; }
    QByteArray gap(QByteArrayView, QByteArrayView) const override { return {}; }
    bool indents() const override { return false; }

private:
    Spelled spell(const FormValue& value) const
    {
        if (value.kind() == FormValue::Kind::Collection)
            return { {}, 0, QByteArray(1, static_cast<char>(BinaryType::Collection)), QByteArray(1, '\0'), {} };
        return { {}, 0, m_printer.value(value), {}, {} };
    }

    FormBinaryPrinter m_printer;
};

}

std::unique_ptr<FormScribe> FormScribe::of(const FormTree& tree, const QString& fileName)
{
    if (tree.format == FormFormat::Binary)
        return std::make_unique<FormBinaryScribe>(tree.encoding);
    return std::make_unique<FormTextScribe>(formStyleOf(tree, fileName));
}
