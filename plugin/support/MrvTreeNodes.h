#pragma once

#include "support/MrvUtils.h"

// The operations of TMrvUtils on tree nodes, for any node class with these operations:
//
//     int Count() const;                 the number of children
//     TTreeNode* GetLastChild() const;   nil without one
//     TTreeNode* Parent() const;         nil at the top
//     bool Expanded() const;
//     void SetExpanded(bool expanded);
//     TNodeData* Data() const;           what it carries, or nil
//     void SetData(TNodeData* data);
//     void Delete();                     takes the node out of its tree and frees it
//
// Data that belongs to nobody goes through a local owner here, and so once.

template <class TTreeNode>
void TMrvUtils::FreeNodeData(TTreeNode* node)
{
    const std::unique_ptr<TNodeData> data(static_cast<TNodeData*>(node->Data()));
    node->SetData(nullptr);
}

template <class TTreeNode>
void TMrvUtils::DeleteNode(TTreeNode* node)
{
    while (auto* child = node->GetLastChild())
        DeleteNode(child);
    const std::unique_ptr<TNodeData> data(static_cast<TNodeData*>(node->Data()));
    auto* parent = node->Parent();
    if (parent && parent->Expanded() && parent->Count() == 1)
        parent->SetExpanded(false);
    node->Delete();
}
