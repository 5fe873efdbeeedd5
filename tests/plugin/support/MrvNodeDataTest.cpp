#include "model/MrvCustomComponentAttr.h"
#include "support/MrvTreeNodes.h"

#include <gtest/gtest.h>

namespace {

// A tree node as DeleteNode knows one. It writes down what is done to it.
class Node {
public:
    Node(QStringList& log, const QString& name, Node* parent = nullptr)
        : FLog(log)
        , FName(name)
        , FParent(parent)
    {
        if (parent)
            parent->FChildren << this;
    }
    int Count() const { return int(FChildren.size()); }
    Node* GetLastChild() const { return FChildren.isEmpty() ? nullptr : FChildren.last(); }
    Node* Parent() const { return FParent; }
    bool Expanded() const { return FExpanded; }
    void SetExpanded(bool expanded)
    {
        FExpanded = expanded;
        FLog << (expanded ? u"expand "_qs : u"collapse "_qs) + FName;
    }
    TNodeData* Data() const { return FData; }
    void SetData(TNodeData* data) { FData = data; }
    void Delete()
    {
        FLog << u"delete "_qs + FName;
        if (FParent)
            FParent->FChildren.removeOne(this);
        delete this;
    }
    bool FExpanded = false;

private:
    QStringList& FLog;
    QString FName;
    Node* FParent;
    QList<Node*> FChildren;
    TNodeData* FData = nullptr;
};

// Counts its references as a wrapper does; answers as one or as nothing.
class Counted : public IInterface {
public:
    explicit Counted(bool isWrapper)
        : FIsWrapper(isWrapper)
    {
    }
    void* QueryInterface(const TGUID& iid) override
    {
        if (iid == IMrvCustomComponentAttr::IID && FIsWrapper)
            return FWrapper.get();
        return nullptr;
    }
    int AddRef() override { return ++FCount; }
    int Release() override { return --FCount; }
    int FCount = 0;

private:
    bool FIsWrapper;
    InterfacePtr<IMrvCustomComponentAttr> FWrapper
        = New<TCustomComponentAttr>(nullptr, TClass(), nullptr, nullptr, u"Counted");
};

// A wrapper has several interfaces; a node refers to one of them.
InterfacePtr<IMrvCustomComponentAttr> AsInterface(const InterfacePtr<TCustomComponentAttr>& wrapper)
{
    return wrapper;
}

InterfacePtr<TCustomComponentAttr> MakeWrapper()
{
    return New<TCustomComponentAttr>(nullptr, TClass(), nullptr, nullptr, u"Wrapper");
}

}

TEST(TNodeData, KeepsItsWrapperUntilItIsFreed)
{
    const auto wrapper = MakeWrapper();
    const std::unique_ptr<TNodeData> data(TMrvUtils::CreateNodeData(ndtField, AsInterface(wrapper)));
    EXPECT_EQ(data->GetNodeType(), ndtField);
    EXPECT_EQ(wrapper->RefCount(), 2);
}

TEST(TNodeData, ReleasesAnObjectThatStillAnswers)
{
    Counted object(true);
    delete TMrvUtils::CreateNodeData(ndtForm, InterfacePtr<IInterface>(&object));
    EXPECT_EQ(object.FCount, 0);
}

TEST(TNodeData, MakesNoCallOnAnObjectThatNoLongerAnswers)
{
    Counted object(false);
    delete TMrvUtils::CreateNodeData(ndtForm, InterfacePtr<IInterface>(&object));
    EXPECT_EQ(object.FCount, 1);
}

TEST(TMrvUtils, FreesTheDataOfANodeOnce)
{
    QStringList log;
    const auto wrapper = MakeWrapper();
    auto* node = new Node(log, u"a"_qs);
    node->SetData(TMrvUtils::CreateNodeData(ndtDataSet, AsInterface(wrapper)));
    TMrvUtils::FreeNodeData(node);
    EXPECT_EQ(node->Data(), nullptr);
    EXPECT_EQ(wrapper->RefCount(), 1);
    TMrvUtils::FreeNodeData(node);
    EXPECT_EQ(wrapper->RefCount(), 1);
    node->Delete();
}

TEST(TMrvUtils, DeletesWhatIsBelowANodeLastAndDeepestFirst)
{
    QStringList log;
    const auto wrapper = MakeWrapper();
    auto* root = new Node(log, u"root"_qs);
    QList<Node*> nodes { root };
    for (const auto& [name, parent] : { std::pair(u"a"_qs, 0), std::pair(u"a1"_qs, 1), std::pair(u"a2"_qs, 1),
             std::pair(u"b"_qs, 0), std::pair(u"b1"_qs, 4) })
        nodes << new Node(log, name, nodes[parent]);
    for (auto* node : nodes)
        node->SetData(TMrvUtils::CreateNodeData(ndtBlank, AsInterface(wrapper)));
    TMrvUtils::DeleteNode(root);
    EXPECT_EQ(log,
        (QStringList {
            u"delete b1"_qs, u"delete b"_qs, u"delete a2"_qs, u"delete a1"_qs, u"delete a"_qs, u"delete root"_qs }));
    EXPECT_EQ(wrapper->RefCount(), 1);
}

TEST(TMrvUtils, CollapsesAnExpandedParentBeforeItsLastChildGoes)
{
    QStringList log;
    auto* root = new Node(log, u"root"_qs);
    auto* first = new Node(log, u"first"_qs, root);
    auto* second = new Node(log, u"second"_qs, root);
    root->FExpanded = true;
    TMrvUtils::DeleteNode(second);
    TMrvUtils::DeleteNode(first);
    EXPECT_EQ(log, (QStringList { u"delete second"_qs, u"collapse root"_qs, u"delete first"_qs }));
    root->Delete();
}
