#pragma once

#include <functional>
#include <memory>
#include <span>

namespace velmora {

class Peers;

/// What the program needs of the system before the toolkit starts, and for starting it.
class Startup {
public:
    /// The system's own; `arguments` is the program's command line, and outlives it.
    [[nodiscard]] static std::unique_ptr<Startup> make(std::span<char const* const> arguments);

    virtual ~Startup() = default;

    /// The other running copies.
    [[nodiscard]] virtual Peers& peers() = 0;

    /// Whether windows can be shown; true where only the toolkit can tell.
    [[nodiscard]] virtual bool displayReachable() const = 0;

    /// Calls `start`, which makes the toolkit's application object, once: with the toolkit told
    /// beforehand, and the system afterwards, how a program without a main window wants to be run.
    virtual void startToolkit(std::function<void()> const& start) = 0;
};

} // namespace velmora
