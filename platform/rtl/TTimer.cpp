#include "rtl/TTimer.h"

#include "rtl/Guard.h"

#include <QTimer>

#include <algorithm>
#include <vector>

namespace {

class QtClock : public IClock {
public:
    class QtTick : public Tick {
    public:
        QtTick(int interval, std::function<void()> fire)
        {
            QObject::connect(&FTimer, &QTimer::timeout, &FTimer, [fire = std::move(fire)] {
                const auto held = fire; // the handler may delete this tick
                held();
            });
            FTimer.start(interval);
        }

    private:
        QTimer FTimer;
    };
    std::unique_ptr<Tick> Start(int interval, std::function<void()> fire) override
    {
        return std::make_unique<QtTick>(interval, std::move(fire));
    }
};

IClock* GClock = nullptr;

IClock& CurrentClock()
{
    static QtClock qt;
    return GClock ? *GClock : qt;
}

}

void SetClock(IClock* clock)
{
    GClock = clock;
}

TTimer::TTimer() = default;
TTimer::~TTimer() = default;

void TTimer::SetInterval(int interval)
{
    FInterval = interval;
    Restart();
}

void TTimer::SetEnabled(bool enabled)
{
    FEnabled = enabled;
    Restart();
}

void TTimer::Restart()
{
    FTick.reset();
    if (!FEnabled || FInterval <= 0 || !OnTimer)
        return;
    FTick = CurrentClock().Start(FInterval, [this] {
        const auto handler = OnTimer; // the handler may delete this timer
        AtEventBorder([&] { handler(this); });
    });
}

struct ManualClock::State {
    struct Entry {
        int Id;
        qint64 Due;
        int Interval;
        std::function<void()> Fire;
    };
    qint64 Now = 0;
    int LastId = 0;
    std::vector<Entry> Entries;

    auto Find(int id)
    {
        return std::find_if(Entries.begin(), Entries.end(), [id](const Entry& entry) { return entry.Id == id; });
    }
};

ManualClock::ManualClock()
    : FState(std::make_shared<State>())
{
    SetClock(this);
}

ManualClock::~ManualClock()
{
    SetClock(nullptr);
}

std::unique_ptr<IClock::Tick> ManualClock::Start(int interval, std::function<void()> fire)
{
    class ManualTick : public Tick {
    public:
        ManualTick(std::shared_ptr<State> state, int id)
            : FState(std::move(state))
            , FId(id)
        {
        }
        ~ManualTick() override
        {
            const auto entry = FState->Find(FId);
            if (entry != FState->Entries.end())
                FState->Entries.erase(entry);
        }

    private:
        std::shared_ptr<State> FState;
        int FId;
    };
    const int id = ++FState->LastId;
    FState->Entries.push_back({ id, FState->Now + interval, interval, std::move(fire) });
    return std::make_unique<ManualTick>(FState, id);
}

void ManualClock::Advance(int milliseconds)
{
    const auto until = FState->Now + milliseconds;
    const auto earlier = [](const State::Entry& a, const State::Entry& b) { return a.Due < b.Due; };
    for (;;) {
        auto& entries = FState->Entries;
        const auto next = std::min_element(entries.begin(), entries.end(), earlier);
        if (next == entries.end() || next->Due > until)
            break;
        FState->Now = next->Due;
        next->Due += next->Interval;
        const auto fire = next->Fire; // firing may change the entries
        fire();
    }
    FState->Now = until;
}

bool ManualClock::Idle() const
{
    return FState->Entries.empty();
}
