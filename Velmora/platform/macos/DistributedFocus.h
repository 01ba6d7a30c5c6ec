#pragma once

#include "Velmora/platform/FocusRequest.h"

#include <functional>

@class VelmoraFocusListener;

namespace velmora {

/// Posts the request once to every running copy, to inactive ones at once as well.
void postFocusRequest(FocusRequest const& request);

/// Hears the focus requests of later copies.
class DistributedFocus {
public:
    explicit DistributedFocus(std::function<void(FocusRequest const&)> requested);
    DistributedFocus(DistributedFocus const&) = delete;
    DistributedFocus& operator=(DistributedFocus const&) = delete;
    ~DistributedFocus();

private:
    std::function<void(FocusRequest const&)> m_requested;
    VelmoraFocusListener* m_listener;
};

} // namespace velmora
