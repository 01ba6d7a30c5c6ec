#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

namespace velmora {

/// What the session tells about its display servers and what the user chose, before the toolkit
/// starts.
struct DisplaySession {
    /// The X display's name; empty without one.
    std::string x11;
    /// The Wayland socket's name or path; empty without one.
    std::string wayland;
    /// The user chose the toolkit's backend, by its variable or its option.
    bool backendChosen = false;

    bool operator==(DisplaySession const&) const = default;
};

/// Reads the session from the environment and the program's arguments.
[[nodiscard]] DisplaySession displaySession(std::span<char const* const> arguments);

/// The backend to ask the toolkit for; absent where its own choice is right or the user chose.
///
/// In a Wayland session the X11 backend comes first: only there may a window place itself, stay
/// above the others and be on every desktop.
[[nodiscard]] std::optional<std::string_view> preferredBackend(DisplaySession const& session);

/// Whether one of the session's display servers answers. True when the user chose the backend:
/// then the toolkit is to judge.
[[nodiscard]] bool displayReachable(DisplaySession const& session);

/// Asks the toolkit for a backend for as long as it lives, so that programs started later do not
/// inherit the wish.
class BackendWish {
public:
    explicit BackendWish(std::optional<std::string_view> backend);
    BackendWish(BackendWish const&) = delete;
    BackendWish& operator=(BackendWish const&) = delete;
    ~BackendWish();

private:
    bool m_set;
};

} // namespace velmora
