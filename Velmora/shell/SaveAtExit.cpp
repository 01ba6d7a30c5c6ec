#include "Velmora/shell/SaveAtExit.h"

#include "Velmora/shell/AppDelegate.h"

#include <cstdlib>

#include <unistd.h>

namespace velmora {

namespace {

/// The delegate to save, while the event loop runs.
AppDelegate* running = nullptr;

void save()
{
    if (!running)
        return;
    running->applicationWillTerminate();
    // What the toolkit still has to tidy away needs the display that is gone.
    _exit(0);
}

} // namespace

SaveAtExit::SaveAtExit(AppDelegate& delegate)
{
    running = &delegate;
    std::atexit(save);
}

SaveAtExit::~SaveAtExit()
{
    running = nullptr;
}

} // namespace velmora
