#include "Velmora/geometry/PointerTracker.h"
#include "Velmora/geometry/SettingsPlacement.h"
#include "Velmora/geometry/WidgetPlacement.h"
#include "Velmora/platform/DesktopCoordinates.h"

#include "tests/fuzz/FuzzInput.h"
#include "tests/model/Desk.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace velmora {
namespace {

/// Rounding in sums of numbers of a desktop's size.
constexpr double hair = 1e-6;

/// An orb on displays that come, go, move and shrink, handled as the program handles it.
class Layouts {
public:
    explicit Layouts(FuzzInput& input)
        : m_input(input)
    {
        plug();
        store("widgetSize");
        store("widgetOriginX");
        store("widgetOriginY");
        m_desk.store("hasSavedOrigin", m_input.yes());
        m_model = &m_desk.launch();
        m_model->onWidgetSize = [this] { fitOrb(); };
        placeFirst();
    }

    void live()
    {
        while (!m_input.spent()) {
            act();
            check();
        }
    }

private:
    void store(std::string const& key)
    {
        int const kind = m_input.number(0, 3);
        if (kind > 0)
            m_desk.store(key, kind == 1 ? m_input.anyDouble() : m_input.number(-9000, 9000) / 2.0);
    }

    /// Any displays at all: overlapping, apart, without size, all but covered by panels.
    void plug()
    {
        auto& displays = m_desk.displays;
        displays.displays.clear();
        for (int left = m_input.number(0, 4); left > 0; --left) {
            Rect const frame = {.x = static_cast<double>(m_input.number(-5000, 5000)),
                .y = static_cast<double>(m_input.number(-5000, 5000)),
                .width = static_cast<double>(m_input.number(0, 8000)),
                .height = static_cast<double>(m_input.number(0, 8000))};
            displays.displays.push_back({.id = DisplayId(m_input.number(1, 6)),
                .frames = {.frame = frame, .visible = inset(frame)}});
        }
        displays.mainDisplay.reset();
        if (int const main = m_input.number(0, 6); main > 0)
            displays.mainDisplay = DisplayId(main);
    }

    Rect inset(Rect const& frame)
    {
        double const left = frame.width * (m_input.byte() / 511.0);
        double const low = frame.height * (m_input.byte() / 511.0);
        double const share = m_input.yes() ? 1.0 : m_input.byte() / 255.0;
        return {.x = frame.x + left,
            .y = frame.y + low,
            .width = (frame.width - left) * share,
            .height = (frame.height - low) * share};
    }

    void placeFirst()
    {
        auto& model = *m_model;
        double const fitting = model.clampSize(model.widgetSize(), m_desk.displays.main());
        if (std::abs(fitting - model.widgetSize()) > 0.5)
            model.setWidgetSize(fitting);
        double const side = model.widgetSize();
        Point const saved = model.widgetOrigin();
        Point const origin = model.originForLaunch(side);
        require(origin == expectedOrigin(saved, model.hasSavedOrigin(), side));
        m_orb = {.x = origin.x, .y = origin.y, .width = side, .height = side};
        if (model.hasSavedOrigin() && distance(origin, saved) > 1.0)
            model.saveOrigin(origin);
        model.setHostScreen(holding());
        atRest();
    }

    void act()
    {
        switch (m_input.number(0, 4)) {
        case 0:
            m_model->applySize(
                m_input.yes() ? m_input.anyDouble() : m_input.number(-10, 2000) / 2.0,
                m_input.yes() ? std::optional(DisplayId(m_input.number(0, 7))) : std::nullopt);
            break;
        case 1:
            drag();
            break;
        case 2:
            m_model->setWidgetSize(m_input.anyDouble());
            break;
        default:
            plug();
            displaysChanged();
        }
    }

    void displaysChanged()
    {
        auto const saves = m_desk.saves();
        Point const before = m_orb.origin();
        Point const origin = m_model->originPullingOnScreen(before, m_orb.width);
        require(origin == expectedOrigin(before, true, m_orb.width));
        bool const moves = std::hypot(origin.x - before.x, origin.y - before.y) > 1.0;
        if (distance(origin, before) > 1.0) {
            moveTo(origin);
            m_model->saveOrigin(origin);
        }
        require(m_desk.saves() == saves + (moves ? 1 : 0));
        m_model->setHostScreen(holding());
        atRest();
    }

    void fitOrb()
    {
        double const side = m_model->clampSize(m_model->widgetSize(), holding());
        if (std::abs(side - m_model->widgetSize()) > 0.5) {
            m_model->setWidgetSize(side);
        } else if (std::abs(m_orb.width - side) > 0.5) {
            m_orb = {.x = m_orb.midX() - side / 2,
                .y = m_orb.midY() - side / 2,
                .width = side,
                .height = side};
            m_model->saveOrigin(m_orb.origin());
        }
    }

    void drag()
    {
        auto const here = holding();
        Rect const visible = visibleFrame(here);
        Point const wish
            = {.x = m_input.yes() ? m_input.finiteDouble() : m_input.number(-9000, 9000),
                .y = static_cast<double>(m_input.number(-9000, 9000))};
        double const side = m_orb.width;
        Point const place = WidgetPlacement::drag(wish, side, visible);
        require(place.x <= visible.maxX() - 0.65 * side && place.y <= visible.maxY() - 0.65 * side);
        require(place.x >= std::min(visible.minX() - 0.35 * side, visible.maxX() - 0.65 * side));
        require(place.y >= std::min(visible.minY() - 0.35 * side, visible.maxY() - 0.65 * side));
        moveTo(place);
        m_model->saveOrigin(place);
        require(m_model->widgetOrigin() == place && m_model->hasSavedOrigin());
    }

    void moveTo(Point origin)
    {
        m_orb.x = origin.x;
        m_orb.y = origin.y;
    }

    /// The display whose frame shares the largest area with the orb.
    [[nodiscard]] std::optional<DisplayId> holding() const
    {
        std::vector<ScreenFrames> frames;
        for (auto const& each : m_desk.displays.displays)
            frames.push_back(each.frames);
        auto const index = displayHolding(m_orb, frames);
        return index ? std::optional(m_desk.displays.displays[*index].id) : std::nullopt;
    }

    [[nodiscard]] Rect visibleFrame(std::optional<DisplayId> wanted) const
    {
        for (auto const& id : {wanted, m_desk.displays.mainDisplay}) {
            for (auto const& each : m_desk.displays.displays) {
                if (each.id == id)
                    return each.frames.visible;
            }
        }
        return {.x = 0, .y = 0, .width = 1440, .height = 900};
    }

    /// Where the rules put an orb: the display with its centre, the main one asked first; or else
    /// the default corner of the first display.
    [[nodiscard]] Point expectedOrigin(Point saved, bool hasSaved, double side) const
    {
        std::vector<ScreenFrames> order;
        for (bool const main : {true, false}) {
            for (auto const& each : m_desk.displays.displays) {
                if ((each.id == m_desk.displays.mainDisplay) == main)
                    order.push_back(each.frames);
            }
        }
        if (order.empty())
            order.push_back({.frame = visibleFrame({}), .visible = visibleFrame({})});
        Point const centre = {.x = saved.x + side / 2, .y = saved.y + side / 2};
        for (auto const& [frame, visible] : order) {
            if (hasSaved && centre.x >= frame.x && centre.x < frame.x + frame.width
                && centre.y >= frame.y && centre.y < frame.y + frame.height)
                return kept(saved, side, visible);
        }
        Rect const visible = order.front().visible;
        return kept(
            {.x = visible.x + visible.width - side - 28, .y = visible.y + 36}, side, visible);
    }

    /// At least 45 % of the side inside, the upper bound last.
    static Point kept(Point p, double side, Rect const& visible)
    {
        double const inside = 0.45 * side;
        p.x = std::min(
            std::max(p.x, visible.x - side + inside), visible.x + visible.width - inside);
        p.y = std::min(
            std::max(p.y, visible.y - side + inside), visible.y + visible.height - inside);
        return p;
    }

    /// After a placement, the orb is where some display shows it.
    void atRest() const
    {
        auto const frames = m_model->screenFrames();
        bool const shown = std::ranges::any_of(frames, [this](ScreenFrames const& screen) {
            double const inside = 0.45 * m_orb.width;
            Rect const& visible = screen.visible;
            double const acrossLeast
                = std::min(visible.minX() + inside - m_orb.width, visible.maxX() - inside);
            double const upLeast
                = std::min(visible.minY() + inside - m_orb.width, visible.maxY() - inside);
            // A place that moved by no more than a point stays as it was.
            return m_orb.x <= visible.maxX() - inside + 1 + hair
                && m_orb.x >= acrossLeast - 1 - hair
                && m_orb.y <= visible.maxY() - inside + 1 + hair && m_orb.y >= upLeast - 1 - hair;
        });
        require(shown);
    }

    void check() const
    {
        auto const& model = *m_model;
        Rect const host = visibleFrame(model.hostScreen());
        double const most = 0.22 * std::max(host.width, host.height);
        // Half a point from what is allowed is left alone, also below nothing.
        require(std::isfinite(model.widgetSize()) && model.widgetSize() >= -0.5);
        require(same(model.maxWidgetSize(model.hostScreen()), most));
        for (double const wish : {-1.0, 71.9, 72.0, 100.0, 1e300})
            require(
                model.clampSize(wish, model.hostScreen()) == std::min(std::max(wish, 72.0), most));
        require(std::isfinite(m_orb.x) && std::isfinite(m_orb.y) && std::isfinite(m_orb.width));
        checkSettings();
        checkCoordinates();
    }

    void checkSettings() const
    {
        Rect const visible = visibleFrame(holding());
        double const height = SettingsPlacement::height(700, visible);
        require(height <= visible.height - 24);
        Size const panel = {.width = SettingsPlacement::width, .height = height};
        auto const origin = SettingsPlacement::origin(panel, {.orb = m_orb, .visible = visible});
        require(origin && std::isfinite(origin->x));
        require(origin->x + panel.width <= visible.maxX() + hair);
        require(origin->y + panel.height <= visible.maxY() - 12 + hair);
        if (height + 24 <= visible.height)
            require(origin->y >= visible.minY() + 12 - hair);
    }

    void checkCoordinates() const
    {
        for (auto const& primary : m_desk.displays.displays) {
            DesktopCoordinates const convert(primary.frames.frame);
            for (auto const& each : m_desk.displays.displays) {
                auto const there = convert.fromToolkit(each.frames.frame);
                require(convert.toToolkit(there) == each.frames.frame);
            }
        }
    }

    FuzzInput& m_input;
    Desk m_desk;
    AppModel* m_model = nullptr;
    Rect m_orb;
};

} // namespace
} // namespace velmora

/// Whatever is plugged in and taken away, the orb has an allowed size on an allowed place.
extern "C" int LLVMFuzzerTestOneInput(unsigned char const* data, std::size_t size)
{
    static int argc = 0;
    static QCoreApplication const application(argc, nullptr);
    velmora::FuzzInput input(data, size);
    velmora::Layouts(input).live();
    return 0;
}
