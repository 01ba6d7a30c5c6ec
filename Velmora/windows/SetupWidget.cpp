#include "Velmora/windows/SetupWidget.h"

#include "Velmora/model/AppModel.h"

namespace velmora {

namespace {

/// Points by which a place may move without being worth saving.
constexpr double tolerance = 1.0;

} // namespace

std::unique_ptr<WidgetPanel> setupWidget(WidgetPanel::Seams const& seams, WidgetView& view)
{
    auto& model = seams.model;
    auto const size = model.widgetSize();
    auto panel = std::make_unique<WidgetPanel>(seams, view);
    auto const origin = model.originForLaunch(size);
    panel->setFrame({.x = origin.x, .y = origin.y, .width = size, .height = size});
    if (model.hasSavedOrigin() && distance(origin, model.widgetOrigin()) > tolerance)
        model.saveOrigin(origin);
    model.setHostScreen(panel->display());
    panel->orderFrontRegardless();
    return panel;
}

} // namespace velmora
