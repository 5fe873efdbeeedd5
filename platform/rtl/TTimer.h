#pragma once

#include <functional>
#include <memory>

class QObject;

// Where timers tick. The process has one: Qt's event loop, or in tests a clock that is moved by hand.
class IClock {
public:
    // Something that was started and can be stopped by letting go of it.
    class Tick {
    public:
        virtual ~Tick() = default;
    };
    // Calls `fire` after each interval (milliseconds) until the Tick is deleted, which `fire` itself may do.
    virtual std::unique_ptr<Tick> Start(int interval, std::function<void()> fire) = 0;

protected:
    ~IClock() = default;
};

// Puts a clock in the place of Qt's for all timers enabled from now on; nil puts Qt's back. The caller owns it.
void SetClock(IClock* clock);

// A timer of the main thread. It fires OnTimer(sender) an interval after it was enabled, and after each further
// interval, until it is disabled. Disabling and enabling restarts the interval. An exception that leaves the handler
// stops at the event's border.
class TTimer {
public:
    TTimer();
    ~TTimer();
    TTimer(const TTimer&) = delete;
    TTimer& operator=(const TTimer&) = delete;

    // Milliseconds; 1000 unless set. 0 keeps the timer from firing.
    int Interval() const { return FInterval; }
    void SetInterval(int interval);
    bool Enabled() const { return FEnabled; }
    void SetEnabled(bool enabled);

    std::function<void(TTimer*)> OnTimer;

private:
    void Restart();
    int FInterval = 1000;
    bool FEnabled = true;
    std::unique_ptr<IClock::Tick> FTick;
};

// A clock that stands still until it is moved. While it lives, all timers tick by it.
class ManualClock : public IClock {
public:
    ManualClock();
    ~ManualClock();
    std::unique_ptr<Tick> Start(int interval, std::function<void()> fire) override;
    // Moves the time on, firing what comes due in the order of its time, also what is started meanwhile.
    void Advance(int milliseconds);
    // Whether any timer is running.
    bool Idle() const;

private:
    struct State;
    std::shared_ptr<State> FState;
};
