#include "forms/FormScribe.h"

#include "forms/FormBinaryPrinter.h"
#include "forms/FormLexer.h"

namespace {

bool EndsLine(QByteArrayView bytes)
{
    return bytes.endsWith('\n') || bytes.endsWith('\r');
}

class FormTextScribe : public FormScribe {
public:
    explicit FormTextScribe(FormTextStyle style)
        : FStyle(std::move(style))
        , FPrinter(FStyle)
    {
    }

    Spelled NewProperty(const FormNode& owner, const QByteArray& name, const FormValue& value) const override
    {
        const auto indent = PropertyIndent(owner);
        Spelled made = Spell(value, indent);
        made.NameAt = indent.size();
        made.Lead = indent + name + " = ";
        made.Trail = FStyle.LineEnd;
        if (!EndsLine(LastOfBody(owner)))
            StartLine(made);
        return made;
    }

    Spelled NewValue(const FormProperty& property, const FormValue& value) const override
    {
        return Spell(value, FormIndentOf(property.ThePieces().Lead));
    }

    QByteArrayView LeadFor(QByteArrayView lead) const override
    {
        auto end = lead.lastIndexOf('=') + 1;
        const auto behind = lead.sliced(end);
        if (!behind.contains('\n') && !behind.contains('\r'))
            return lead;
        while (end < lead.size() && (lead[end] == ' ' || lead[end] == '\t'))
            ++end;
        return lead.first(end);
    }

    QByteArray NewHeader(const QByteArray& indent, const FormNames& names) const override
    {
        const auto before = names.Kind == FormNode::Kind::Item ? FStyle.LineEnd : QByteArray();
        return before + indent + FPrinter.header(names) + FStyle.LineEnd;
    }

    Frame NewFrame(const QByteArray& indent, FormNode::Kind kind) const override
    {
        return { {}, indent + "end" + (kind == FormNode::Kind::Item ? QByteArray() : FStyle.LineEnd) };
    }

    QByteArray ChangedHeader(const FormNode& node, const FormNames& names) const override
    {
        const auto bytes = node.TheHeader().Bytes;
        FormLexer lexer(bytes);
        const auto word = lexer.Next();
        auto last = word.End;
        for (auto token = lexer.Next(); token.Type != FormToken::Kind::End; token = lexer.Next())
            last = token.End;
        const auto before = bytes.first(word.Begin).toByteArray();
        return before + FPrinter.header(names) + bytes.sliced(last).toByteArray();
    }

    FormNode::Header Locate(QByteArrayView header, const FormNames& names) const override
    {
        FormNode::Header made { header, {}, {}, names.Index };
        FormLexer lexer(header);
        auto at = lexer.Next().End;
        if (!names.Name.isEmpty()) {
            at = header.indexOf(names.Name, at);
            made.Name = header.sliced(at, names.Name.size());
            at += names.Name.size();
        }
        if (!names.ClassName.isEmpty())
            made.ClassName = header.sliced(header.indexOf(names.ClassName, at), names.ClassName.size());
        return made;
    }

    QByteArray ChildIndent(const FormNode& parent) const override
    {
        if (!parent.Children().empty())
            return FormIndentOf(parent.Children().back()->TheHeader().Bytes);
        return PropertyIndent(parent);
    }

    QByteArray ItemIndent(const FormProperty& collection) const override
    {
        if (!collection.Items().empty())
            return FormIndentOf(collection.Items().back()->TheHeader().Bytes);
        return FormIndentOf(collection.ThePieces().Lead) + FStyle.Step;
    }

    QByteArray Gap(QByteArrayView before, QByteArrayView after) const override
    {
        const bool apart = before.isEmpty() || after.isEmpty() || FormLexer::IsBlank(before.back())
            || FormLexer::IsBlank(after.front());
        return apart ? QByteArray() : FStyle.LineEnd;
    }

    bool Indents() const override { return true; }

private:
    void StartLine(Spelled& property) const
    {
        property.Lead.prepend(FStyle.LineEnd);
        property.NameAt += FStyle.LineEnd.size();
    }

    QByteArray PropertyIndent(const FormNode& owner) const
    {
        if (!owner.Properties().empty())
            return FormIndentOf(owner.Properties().back()->ThePieces().Lead);
        return FormIndentOf(owner.TheHeader().Bytes) + FStyle.Step;
    }

    static QByteArrayView LastOfBody(const FormNode& owner)
    {
        if (owner.Properties().empty())
            return owner.TheHeader().Bytes;
        return owner.Properties().back()->ThePieces().Trail;
    }

    Spelled Spell(const FormValue& value, const QByteArray& indent) const
    {
        if (value.TheKind() == FormValue::Kind::Collection)
            return { {}, 0, "<", ">", {} };
        return { {}, 0, FPrinter.Value(value, indent), {}, {} };
    }

    FormTextStyle FStyle;
    FormTextPrinter FPrinter;
};

class FormBinaryScribe : public FormScribe {
public:
    explicit FormBinaryScribe(const FormEncoding& encoding)
        : FPrinter(encoding)
    {
    }

    Spelled NewProperty(const FormNode&, const QByteArray& name, const FormValue& value) const override
    {
        auto made = Spell(value);
        made.Lead = FormBinaryPrinter::ShortString(name);
        made.NameAt = 1;
        return made;
    }

    Spelled NewValue(const FormProperty&, const FormValue& value) const override { return Spell(value); }

    QByteArrayView LeadFor(QByteArrayView lead) const override { return lead; }

    QByteArray NewHeader(const QByteArray&, const FormNames& names) const override
    {
        return FormBinaryPrinter::Header(names.Kind, names.Index, names.ClassName, names.Name);
    }

    Frame NewFrame(const QByteArray&, FormNode::Kind kind) const override
    {
        const QByteArray zero(1, '\0');
        return { kind == FormNode::Kind::Item ? QByteArray() : zero, zero };
    }

    QByteArray ChangedHeader(const FormNode&, const FormNames& names) const override { return NewHeader({}, names); }

    FormNode::Header Locate(QByteArrayView header, const FormNames& names) const override
    {
        FormNode::Header made { header, {}, {}, names.Index };
        if (names.Kind == FormNode::Kind::Item)
            return made;
        const auto name = std::min<qsizetype>(names.Name.size(), 255);
        const auto className = std::min<qsizetype>(names.ClassName.size(), 255);
        made.Name = header.last(name);
        made.ClassName = header.sliced(header.size() - name - 1 - className, className);
        return made;
    }

    QByteArray ChildIndent(const FormNode&) const override { return {}; }
    QByteArray ItemIndent(const FormProperty&) const override { return {}; }
    QByteArray Gap(QByteArrayView, QByteArrayView) const override { return {}; }
    bool Indents() const override { return false; }

private:
    Spelled Spell(const FormValue& value) const
    {
        if (value.TheKind() == FormValue::Kind::Collection)
            return { {}, 0, QByteArray(1, static_cast<char>(BinaryType::Collection)), QByteArray(1, '\0'), {} };
        return { {}, 0, FPrinter.Value(value), {}, {} };
    }

    FormBinaryPrinter FPrinter;
};

}

std::unique_ptr<FormScribe> FormScribe::Of(const FormTree& tree, const QString& fileName)
{
    if (tree.Format == FormFormat::Binary)
        return std::make_unique<FormBinaryScribe>(tree.Encoding);
    return std::make_unique<FormTextScribe>(FormStyleOf(tree, fileName));
}
