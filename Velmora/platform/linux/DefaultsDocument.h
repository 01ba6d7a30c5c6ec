#pragma once

#include "Velmora/platform/DefaultsStore.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// The text of a settings file as values, and back again.
///
/// Values that were set stand first, in the order in which each key was first set. What else a
/// parsed text held at its top level follows with its values and types: single values before
/// tables. Comments and layout are not kept.
class DefaultsDocument {
public:
    /// The value under a top-level key; absent for an unknown key and for any type other than an
    /// integer, a boolean or a double (which may here still be infinite or not a number).
    [[nodiscard]] std::optional<DefaultsValue> value(std::string_view key) const;

    /// Replaces whatever stood under the key, of whatever type.
    void set(std::string_view key, DefaultsValue value);

    /// The document as TOML. Every double has a fraction or an exponent and reads back exactly.
    [[nodiscard]] std::string text() const;

    /// What a text holds beside the plain values that were set.
    struct Kept {
        std::string key;
        std::optional<DefaultsValue> value;
        std::string text;
        bool isTable = false;
    };

private:
    friend std::optional<DefaultsDocument> parseDefaults(std::string_view bytes);

    struct Set {
        std::string key;
        DefaultsValue value;
    };

    std::vector<Set> m_set;
    std::vector<Kept> m_kept;
};

/// The document that the bytes stand for; absent when they are not TOML, nest deeper than a
/// settings file has reason to, or hold something that could not be written back unchanged.
/// Empty bytes are an empty document. Any bytes of any length are safe.
[[nodiscard]] std::optional<DefaultsDocument> parseDefaults(std::string_view bytes);

} // namespace velmora
