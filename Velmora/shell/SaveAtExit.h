#pragma once

namespace velmora {

class AppDelegate;

/// Saves also when the toolkit ends the process from within: it does so the moment that the
/// display's server goes away, which is how some sessions end.
///
/// The process then ends in good order, with status 0. One object lives at a time.
class SaveAtExit {
public:
    explicit SaveAtExit(AppDelegate& delegate);
    SaveAtExit(SaveAtExit const&) = delete;
    SaveAtExit& operator=(SaveAtExit const&) = delete;
    SaveAtExit(SaveAtExit&&) = delete;
    SaveAtExit& operator=(SaveAtExit&&) = delete;
    /// The event loop has ended as it should: nothing is left to do at the exit.
    ~SaveAtExit();
};

} // namespace velmora
