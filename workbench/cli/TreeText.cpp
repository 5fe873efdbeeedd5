#include "cli/TreeText.h"

#include "ui/TCustomTreeView.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

QString TreeText::Plain(const TCustomTreeView& tree)
{
    QString text;
    for (const auto* node = tree.Items().GetFirstNode(); node; node = node->GetNext())
        text += QString(node->Level() * 2, u' ') + node->Text() + u'\n';
    return text;
}

namespace {

QJsonObject NodeObject(const TCustomTreeView& tree, const TTreeNode* node)
{
    QJsonArray children;
    for (int i = 0; i < node->Count(); ++i)
        children << NodeObject(tree, node->Item(i));
    return { { QStringLiteral("kind"), tree.NodeKind(node) }, { QStringLiteral("caption"), node->Text() },
        { QStringLiteral("children"), children } };
}

}

QString TreeText::Json(const TCustomTreeView& tree)
{
    QJsonArray nodes;
    for (const auto* node = tree.Items().GetFirstNode(); node; node = node->GetNextSibling())
        nodes << NodeObject(tree, node);
    const auto document = nodes.size() == 1 ? QJsonDocument(nodes[0].toObject()) : QJsonDocument(nodes);
    return QString::fromUtf8(document.toJson(QJsonDocument::Indented));
}
