#pragma once

#include "Velmora/model/AppModel.h"
#include "tests/fakes/FakeCalendar.h"
#include "tests/fakes/FakeClock.h"
#include "tests/fakes/FakeDefaultsStore.h"
#include "tests/fakes/FakeDisplays.h"
#include "tests/fakes/FakeLoginService.h"
#include "tests/fakes/FakeMotionSetting.h"
#include "tests/fakes/FakeProcessRunner.h"
#include "tests/fakes/FakeResources.h"
#include "tests/fakes/FakeSound.h"
#include "tests/fakes/FakeStandardError.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace velmora {

/// A desk with one display, a clock and a user, at which the model can be launched and launched
/// again over the same stored settings.
class Desk {
public:
    Desk()
    {
        Rect const frame = {.x = 0, .y = 0, .width = 1440, .height = 900};
        displays.displays = {{.id = DisplayId(1), .frames = {.frame = frame, .visible = frame}}};
        displays.mainDisplay = DisplayId(1);
    }

    /// Launches the program; a model launched before is gone, as after a kill.
    AppModel& launch()
    {
        m_model.reset();
        m_changes.clear();
        m_model = std::make_unique<AppModel>(AppModel::Seams{.clock = clock,
            .calendar = calendar,
            .displays = displays,
            .motion = motion,
            .defaults = defaults,
            .chime = m_chime,
            .loginItem = m_loginItem});
        QObject::connect(m_model.get(), &AppModel::changed, m_model.get(),
            [this](AppModel::Property property) { m_changes.push_back(property); });
        return *m_model;
    }

    /// Puts a stored value in place before a launch.
    template <typename Value>
    void store(std::string const& key, Value value)
    {
        defaults.values.insert_or_assign(key, DefaultsValue(value));
    }

    /// How often the settings were written.
    [[nodiscard]] std::size_t saves() const { return defaults.writes.size(); }

    /// Sets the local time of day; the clock stays where it is.
    void setLocalTime(int hour, int minute)
    {
        auto const shown = *calendar.components(clock.instant).hour * 60
            + *calendar.components(clock.instant).minute;
        calendar.utcOffsetMinutes += hour * 60 + minute - shown;
    }

    /// The properties that changed since the launch or since they were last taken, in order.
    [[nodiscard]] std::vector<AppModel::Property> takeChanges()
    {
        return std::exchange(m_changes, {});
    }

    /// The volume of every chime that was played, in order.
    [[nodiscard]] std::vector<float> chimes() const { return m_sound.volumes; }
    [[nodiscard]] bool chimePrepared() const
    {
        return std::ranges::count(m_sound.calls, "prepare") == 1;
    }

    /// The player that the model rings.
    [[nodiscard]] ChimePlayer& chime() { return m_chime; }

    /// Stands at a midnight of the calendar.
    FakeClock clock{9260 * 86400.0};
    FakeCalendar calendar;
    FakeDisplays displays;
    FakeDefaultsStore defaults;
    FakeMotionSetting motion;
    FakeLoginService login;

private:
    FakeResources m_resources;
    FakeSound m_sound;
    FakeStandardError m_standardError;
    ChimePlayer m_chime{m_resources, m_sound, m_standardError};
    FakeProcessRunner m_runner;
    LoginItem m_loginItem{login, m_runner, {.home = "/nonexistent", .bundle = "/program"}};
    std::unique_ptr<AppModel> m_model;
    std::vector<AppModel::Property> m_changes;
};

} // namespace velmora
