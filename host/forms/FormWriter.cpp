#include "forms/FormWriter.h"

#include <QtEndian>

namespace {

// The header that old files have around a binary form tells its size; it moves with the form's.
void setResourceSize(QByteArray& bytes, const FormTree& tree)
{
    const auto header = tree.prefix.size() - 4; // the signature belongs to the form
    const auto behind = tree.source().size() - header - tree.wrapped;
    const auto size = static_cast<quint32>(bytes.size() - header - behind);
    qToLittleEndian(size, bytes.data() + header - qsizetype(sizeof size));
}

}

QByteArray FormWriter::bytes(const FormTree& tree)
{
    FormWriter writer;
    writer.m_bytes.reserve(tree.source().size());
    writer.add(tree.prefix);
    writer.add(*tree.root);
    writer.add(tree.suffix);
    auto bytes = writer.finish();
    if (tree.wrapped > 0)
        setResourceSize(bytes, tree);
    return bytes;
}

QByteArray FormWriter::bytes(const FormNode& node)
{
    FormWriter writer;
    writer.add(node);
    return writer.finish();
}

QByteArray FormWriter::finish()
{
    m_bytes += m_run;
    m_run = {};
    return std::move(m_bytes);
}

void FormWriter::add(QByteArrayView piece)
{
    if (piece.isEmpty())
        return;
    if (m_run.data() + m_run.size() == piece.data()) {
        m_run = { m_run.data(), m_run.size() + piece.size() };
        return;
    }
    m_bytes += m_run;
    m_run = piece;
}

void FormWriter::add(const FormProperty& property)
{
    const auto& pieces = property.pieces();
    add(pieces.lead);
    add(pieces.value);
    for (const auto* item : pieces.items)
        add(*item);
    add(pieces.close);
    add(pieces.trail);
}

void FormWriter::add(const FormNode& node)
{
    add(node.header().bytes);
    for (const auto* property : node.properties())
        add(*property);
    add(node.middle());
    for (const auto* child : node.children())
        add(*child);
    add(node.footer());
}
