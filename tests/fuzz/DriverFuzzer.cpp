#include "tests/fuzz/FuzzInput.h"
#include "tests/fuzz/TableDriver.h"
#include "tests/model/Desk.h"

#include <QCoreApplication>

#include <array>
#include <limits>

namespace velmora {
namespace {

/// A model and its table that live through the same days.
class TwoDrivers {
public:
    explicit TwoDrivers(FuzzInput& input)
        : m_input(input)
    {
        m_desk.clock.instant += 7.0 * m_input.number(0, 60000);
        store();
        launch();
    }

    void live()
    {
        while (!m_input.spent()) {
            act();
            compare();
        }
    }

private:
    template <typename Value>
    void store(std::string const& key, std::optional<Value>& expected, Value value)
    {
        switch (m_input.number(0, 3)) {
        case 0:
            expected = value;
            m_desk.store(key, value);
            break;
        case 1:
            storeAnother<Value>(key);
            break;
        default:
            break;
        }
    }

    /// Something of a type that does not count under this key.
    template <typename Value>
    void storeAnother(std::string const& key)
    {
        if constexpr (std::is_same_v<Value, bool>)
            m_desk.store(key, 1.0);
        else
            m_desk.store(key, true);
    }

    void store()
    {
        store("intervalMinutes", m_stored.intervalMinutes, whole());
        store("startMinutes", m_stored.startMinutes, whole());
        store("endMinutes", m_stored.endMinutes, whole());
        store("allDay", m_stored.allDay, m_input.yes());
        store("soundEnabled", m_stored.soundEnabled, m_input.yes());
        store("paused", m_stored.paused, m_input.yes());
        store("soundVolume", m_stored.soundVolume, m_input.finiteDouble());
        store("heldRemaining", m_stored.heldRemaining, m_input.finiteDouble());
    }

    /// Any whole number; most are small ones.
    std::int64_t whole()
    {
        int const kind = m_input.number(0, 9);
        if (kind == 0)
            return std::numeric_limits<std::int64_t>::min() + m_input.byte();
        if (kind == 1)
            return std::numeric_limits<std::int64_t>::max() - m_input.byte();
        return kind == 2 ? m_input.number(-30000, 30000) : m_input.number(-10, 1450);
    }

    void launch()
    {
        m_model = &m_desk.launch();
        m_table.emplace(m_stored, minute());
        m_saves = m_desk.saves();
        m_chimes = m_desk.chimes().size();
        m_statuses = 0;
        m_model->onStatus = [this] { ++m_statuses; };
        compare();
    }

    /// Ends the program, as by a kill, and starts it again over what it has saved.
    void relaunch()
    {
        auto const& values = m_desk.defaults;
        m_stored = {.intervalMinutes = values.integer("intervalMinutes"),
            .startMinutes = values.integer("startMinutes"),
            .endMinutes = values.integer("endMinutes"),
            .allDay = values.boolean("allDay"),
            .soundEnabled = values.boolean("soundEnabled"),
            .paused = values.boolean("paused"),
            .soundVolume = values.number("soundVolume"),
            .heldRemaining = values.number("heldRemaining")};
        launch();
    }

    void act()
    {
        switch (m_input.number(0, 17)) {
        case 0:
        case 1:
        case 2:
        case 3:
            advance();
            m_model->tick();
            m_table->tick(now(), minute());
            break;
        case 4:
            advance();
            break;
        case 5:
            m_desk.calendar.utcOffsetMinutes = m_input.number(-840, 840);
            break;
        default:
            actOfTheUser();
        }
    }

    void actOfTheUser()
    {
        switch (m_input.number(0, 10)) {
        case 0: {
            auto const minutes = whole();
            m_model->setIntervalMinutes(minutes);
            m_table->assignInterval(minutes, false, now());
            break;
        }
        case 1: {
            auto const minutes = whole();
            bool const reset = m_input.yes();
            m_model->setInterval(minutes, reset ? ResetRemaining::yes : ResetRemaining::no);
            m_table->setInterval(minutes, reset, now());
            break;
        }
        case 2:
            m_table->start = whole();
            m_model->setStartMinutes(m_table->start);
            m_table->hoursChanged(now(), minute());
            break;
        case 3:
            m_table->end = whole();
            m_model->setEndMinutes(m_table->end);
            m_table->hoursChanged(now(), minute());
            break;
        case 4:
            m_table->allDay = m_input.yes();
            m_model->setAllDay(m_table->allDay);
            m_table->hoursChanged(now(), minute());
            break;
        default:
            actOnReminders();
        }
    }

    void actOnReminders()
    {
        switch (m_input.number(0, 6)) {
        case 0: {
            bool const value = m_input.yes();
            m_model->setPaused(value);
            m_table->setPaused(value, now());
            break;
        }
        case 1:
            m_model->togglePaused();
            m_table->setPaused(!m_table->paused, now());
            break;
        case 2:
            m_model->velmoraNow();
            m_table->remindNow(now());
            break;
        case 3:
            m_model->acknowledgeReminder();
            m_table->acknowledge(now());
            break;
        case 4:
            m_table->sound = m_input.yes();
            m_model->setSoundEnabled(m_table->sound);
            m_table->persist(now());
            break;
        case 5:
            m_table->volume = m_input.finiteDouble();
            m_model->setSoundVolume(m_table->volume);
            m_table->persist(now());
            break;
        default:
            relaunch();
        }
    }

    void advance()
    {
        switch (m_input.number(0, 4)) {
        case 0:
        case 1:
            m_desk.clock.instant += 0.8 + m_input.byte() / 600.0;
            break;
        case 2:
            m_desk.clock.instant += m_input.number(-90, 2000);
            break;
        case 3:
            m_desk.clock.instant += 60.0 * m_input.number(-3000, 3000);
            break;
        default:
            m_desk.clock.instant += 86400.0 * m_input.number(-4000, 4000);
        }
    }

    void compare()
    {
        auto const& model = *m_model;
        auto const& table = *m_table;
        require(model.intervalMinutes() == table.interval);
        require(model.startMinutes() == table.start && model.endMinutes() == table.end);
        require(model.allDay() == table.allDay && model.paused() == table.paused);
        require(model.soundEnabled() == table.sound && model.soundVolume() == table.volume);
        require(model.inActiveHours() == table.active);
        require(model.isReminding() == table.reminding);
        require(model.remainingSeconds() == table.remaining);
        require(model.statusLine() == table.line());
        require(m_desk.saves() - m_saves == table.saves);
        require(m_desk.chimes().size() - m_chimes == table.chimes);
        require(m_statuses == table.statuses);
        if (table.saves > 0)
            require(m_desk.defaults.number("heldRemaining") == table.savedHeld);
    }

    [[nodiscard]] double now() const { return m_desk.clock.instant; }

    [[nodiscard]] int minute() const
    {
        auto const shown = m_desk.calendar.components(now());
        return *shown.hour * 60 + *shown.minute;
    }

    FuzzInput& m_input;
    Desk m_desk;
    TableDriver::Stored m_stored;
    AppModel* m_model = nullptr;
    std::optional<TableDriver> m_table;
    std::size_t m_saves = 0;
    std::size_t m_chimes = 0;
    std::size_t m_statuses = 0;
};

} // namespace
} // namespace velmora

/// Whatever is stored, whatever the user does and wherever the clock goes, the model publishes,
/// saves and rings as the table has it.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    static int argc = 0;
    static QCoreApplication const application(argc, nullptr);
    velmora::FuzzInput input(data, size);
    velmora::TwoDrivers(input).live();
    return 0;
}
