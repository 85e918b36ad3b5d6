#include "savings/savings_figures.h"

#include "savings/decimal.h"

namespace voltaro {
namespace {

// The part of its power that a dimmed monitor draws; for an Inbuilt one, that the machine draws when it is dimmed or
// dark. In the order of MonitorKind; a Branded monitor has no power to take a part of.
constexpr double kDimmedPart[] = {0.97, 0.97, 0.95, 0.97, 0.98};

// In this order, term by term: the other order rounds the last printed digit of some days differently.
double KilowattHours(double wattSeconds)
{
    return wattSeconds / 1000.0 / 3600.0;
}

// The profile in 64-bit floats, so that no sum is rounded to the width of the record's values.
struct Watts {
    double monitor;
    double monitorOff;
    double max;
    double idle;
    double standby;
    double off;
    double dimmedPart;
    bool inbuilt;

    explicit Watts(const PowerProfile& p)
        : monitor(HasTypeAndSize(p.kind) ? p.monitorOn : 0.0F)
        , monitorOff(HasTypeAndSize(p.kind) ? p.monitorOff : 0.0F)
        , max(p.cpuMax)
        , idle(p.cpuIdle)
        , standby(p.cpuStandby)
        , off(p.cpuOff)
        , dimmedPart(kDimmedPart[static_cast<std::size_t>(p.kind)])
        , inbuilt(p.kind == MonitorKind::Inbuilt)
    {
    }

    // The mix of a working day: 5 % at full load, 15 % at the average of full load and idle, 80 % idle.
    [[nodiscard]] double FullOn() const
    {
        const double average = 0.5 * (max + idle);
        return 0.05 * (max + monitor) + 0.15 * (average + monitor) + 0.8 * (idle + monitor);
    }
};

// Seconds as numbers to multiply with.
struct SavedSeconds {
    double dim;
    double monitorOff;
    double timedStandby;
    double poweredDown;

    explicit SavedSeconds(const DayDurations& d)
        : dim(static_cast<double>(d.dim))
        , monitorOff(static_cast<double>(d.monitorOff))
        , timedStandby(static_cast<double>(d.timedStandby))
        , poweredDown(static_cast<double>(d.hibernateUponIdle + d.shutdown))
    {
    }
};

// What the saving states drew, in kWh.
double Drawn(const SavedSeconds& s, const Watts& w)
{
    if (w.inbuilt)
        return KilowattHours((s.dim + s.monitorOff) * w.dimmedPart * w.idle) + KilowattHours(s.timedStandby * w.standby)
            + KilowattHours(s.poweredDown * w.off);
    return KilowattHours(s.dim * (w.idle + w.dimmedPart * w.monitor))
        + KilowattHours(s.monitorOff * (w.idle + w.monitorOff))
        + KilowattHours(s.timedStandby * (w.monitorOff + w.standby))
        + KilowattHours(s.poweredDown * (w.monitorOff + w.off));
}

// What they would have drawn as plain idle time, in watt seconds. The dim term takes 0.97 for every kind of monitor:
// reports stay comparable with earlier ones.
double WouldHaveDrawn(const SavedSeconds& s, const Watts& w)
{
    return (s.timedStandby + s.poweredDown + s.monitorOff) * (w.idle + w.monitor) + s.dim * (w.idle + 0.97 * w.monitor);
}

} // namespace

PowerProfile ReadProfile(const ProfileTexts& texts)
{
    const auto watts = [](std::wstring_view text) { return LeadingDecimal(text).value_or(0.0F); };
    PowerProfile profile{
        .kind = MonitorKindOf(texts.monitorType),
        .cpuMax = watts(texts.cpuMax),
        .cpuIdle = watts(texts.cpuIdle),
        .cpuStandby = watts(texts.cpuStandby),
        .cpuOff = watts(texts.cpuOff),
    };
    if (HasTypeAndSize(profile.kind)) {
        profile.monitorOn = watts(texts.monitorOn);
        profile.monitorOff = watts(texts.monitorOff);
    }
    return profile;
}

SavingsFigures ComputeSavings(const DayReport& day, const PowerProfile& profile)
{
    const DayDurations& d = day.durations;
    const Watts watts(profile);
    const SavedSeconds seconds(d);
    SavingsFigures f;
    f.wouldHaveBeenOn = d.poweredOn + d.shutdown + d.hibernateUponIdle;
    f.savedFor = d.dim + d.monitorOff + d.shutdown + d.hibernateUponIdle + d.timedStandby;

    f.wouldHaveBeen = KilowattHours(static_cast<double>(f.wouldHaveBeenOn) * watts.FullOn());
    f.saved = KilowattHours(WouldHaveDrawn(seconds, watts)) - Drawn(seconds, watts);
    f.nowIs = f.wouldHaveBeen - f.saved;
    if (day.powerConsumed != 0 || day.powerSaved != 0) {
        f.nowIs = day.powerConsumed != 0 ? day.powerConsumed : f.nowIs;
        f.saved = day.powerSaved != 0 ? day.powerSaved : f.saved;
        f.wouldHaveBeen = f.nowIs + f.saved;
    }
    f.percentage = f.wouldHaveBeen != 0 ? f.saved * 100.0 / f.wouldHaveBeen : 0;
    f.carbonDioxide = f.saved * kGramsPerKilowattHour;
    return f;
}

double IdleEnergy(std::int64_t seconds, const PowerProfile& profile)
{
    const Watts watts(profile);
    return KilowattHours(static_cast<double>(seconds) * (watts.idle + watts.monitor));
}

} // namespace voltaro
