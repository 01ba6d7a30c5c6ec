#pragma once

#include "Velmora/platform/PlatformServices.h"

@class VelmoraWorkspaceListener;

namespace velmora {

/// What the workspace tells: sleep and wake, the session handed to another user and back, the
/// displays, and the program opened once more.
class WorkspaceEvents {
public:
    explicit WorkspaceEvents(PlatformServices::Events const& events);
    WorkspaceEvents(WorkspaceEvents const&) = delete;
    WorkspaceEvents& operator=(WorkspaceEvents const&) = delete;
    ~WorkspaceEvents();

private:
    PlatformServices::Events m_events;
    VelmoraWorkspaceListener* m_listener;
};

} // namespace velmora
