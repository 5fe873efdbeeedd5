#pragma once

#include "classes/TPersistent.h"
#include "rtl/InterfacePtr.h"
#include "rtl/TTimer.h"

#include <QList>
#include <QString>

class IMrvEvents;
class TCustomComponentAttr;
class TDataSetAttr;
class TDataSetList;
class TField;

// Work that waits until a burst of designer notifications is over: every new item restarts a timer, and the work runs
// when one interval has been quiet. Each TDataSetList owns five. What is pending when the list goes is dropped.
class TDefferedCallback {
public:
    explicit TDefferedCallback(TDataSetList* dataSetList);
    virtual ~TDefferedCallback() = default;
    TDefferedCallback(const TDefferedCallback&) = delete;
    TDefferedCallback& operator=(const TDefferedCallback&) = delete;

    virtual void OnTimer(TTimer* sender) = 0;
    virtual void AddItem(TCustomComponentAttr* item, bool flag);
    // Restarts the interval; leaves the timer off once the project is gone.
    void ResetTimer();

    TDataSetList* FDataSetList;
    TTimer FTimer;

protected:
    // Disables the timer, runs the work and logs what it raises under the failure text; nothing reaches the event loop.
    void Tick(const QString& failureText, const std::function<void()>& work);
};

// Removal of dataset and connection wrappers; the interval is 100 milliseconds.
class TDefferdDeleteDataSet : public TDefferedCallback {
public:
    explicit TDefferdDeleteDataSet(TDataSetList* dataSetList);
    void OnTimer(TTimer* sender) override;
    // Marks the wrapper deleted. The flag has no meaning.
    void AddItem(TCustomComponentAttr* item, bool flag) override;
    int FCount = 0;
};

// Report of added (action 3) or deleted (action 4) fields, once for each dataset.
class TDefferedFieldCallback : public TDefferedCallback {
public:
    TDefferedFieldCallback(TDataSetList* dataSetList, int action);
    ~TDefferedFieldCallback() override;
    void OnTimer(TTimer* sender) override;
    // Adds the dataset wrapper unless it is listed. The flag has no meaning.
    void AddItem(TCustomComponentAttr* item, bool flag) override;

    // Counted, so that a wrapper that leaves the model while it waits is still there on the tick.
    QList<InterfacePtr<TDataSetAttr>> FDataSetAttrList;
    int FAction;
    bool FNeedBeginUpdate = true;

private:
    void Report(const InterfacePtr<TDataSetAttr>& attr);
    void RemoveDeletedFields(const InterfacePtr<TDataSetAttr>& attr);
};

// Report of a changed connection.
class TDefferedOnSessionChange : public TDefferedCallback {
public:
    using TDefferedCallback::TDefferedCallback;
    void OnTimer(TTimer* sender) override;
    // For a dataset wrapper: marks it, and runs at once with the flag or after the interval without. Others are
    // ignored.
    void AddItem(TCustomComponentAttr* item, bool flag) override;
};

// Field events of inherited forms, whose dataset wrapper is looked up on the tick.
class TDefferedDescendantFieldCallBack : public TDefferedCallback {
public:
    using TDefferedCallback::AddItem;
    using TDefferedCallback::TDefferedCallback;
    void OnTimer(TTimer* sender) override;
    void AddItem(TField* field, int action);

    QList<WeakRef<TPersistent>> FFieldList;
    QList<int> FActionList;
};
