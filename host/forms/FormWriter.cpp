#include "forms/FormWriter.h"

#include <QtEndian>

namespace {

// The header that old files have around a binary form tells its size; it moves with the form's.
void SetResourceSize(QByteArray& bytes, const FormTree& tree)
{
    const auto header = tree.Prefix.size() - 4; // the signature belongs to the form
    const auto behind = tree.Source().size() - header - tree.Wrapped;
    const auto size = static_cast<quint32>(bytes.size() - header - behind);
    qToLittleEndian(size, bytes.data() + header - qsizetype(sizeof size));
}

}

QByteArray FormWriter::Bytes(const FormTree& tree)
{
    FormWriter writer;
    writer.FBytes.reserve(tree.Source().size());
    writer.Add(tree.Prefix);
    writer.Add(*tree.Root);
    writer.Add(tree.Suffix);
    auto bytes = writer.Finish();
    if (tree.Wrapped > 0)
        SetResourceSize(bytes, tree);
    return bytes;
}

QByteArray FormWriter::Bytes(const FormNode& node)
{
    FormWriter writer;
    writer.Add(node);
    return writer.Finish();
}

QByteArray FormWriter::Finish()
{
    FBytes += FRun;
    FRun = {};
    return std::move(FBytes);
}

void FormWriter::Add(QByteArrayView piece)
{
    if (piece.isEmpty())
        return;
    if (FRun.data() + FRun.size() == piece.data()) {
        FRun = { FRun.data(), FRun.size() + piece.size() };
        return;
    }
    FBytes += FRun;
    FRun = piece;
}

void FormWriter::Add(const FormProperty& property)
{
    const auto& pieces = property.ThePieces();
    Add(pieces.Lead);
    Add(pieces.Value);
    for (const auto* item : pieces.Items)
        Add(*item);
    Add(pieces.Close);
    Add(pieces.Trail);
}

void FormWriter::Add(const FormNode& node)
{
    Add(node.TheHeader().Bytes);
    for (const auto* property : node.Properties())
        Add(*property);
    Add(node.Middle());
    for (const auto* child : node.Children())
        Add(*child);
    Add(node.Footer());
}
