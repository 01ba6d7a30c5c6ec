#pragma once

#include "Velmora/platform/DefaultsStore.h"
#include "Velmora/platform/linux/DefaultsDocument.h"
#include "Velmora/platform/linux/SaveWorker.h"
#include "Velmora/platform/linux/SettingsFile.h"

#include <filesystem>
#include <mutex>

namespace velmora {

/// The user's settings in a TOML file that people may read and edit.
///
/// The file is read once, at construction. Written values are in memory at once and reach the disk
/// from a thread of the store's own, at most once per 250 ms. A save that failed is tried again at
/// the next `write` or `flush`. Where several processes write, the last one wins and the file is
/// whole at every instant. One thread calls it all.
class TomlDefaultsStore final : public DefaultsStore {
public:
    /// An empty path makes a store that lives in memory only.
    explicit TomlDefaultsStore(std::filesystem::path file);

    [[nodiscard]] std::optional<std::int64_t> integer(std::string_view key) const override;
    [[nodiscard]] std::optional<bool> boolean(std::string_view key) const override;
    [[nodiscard]] std::optional<double> number(std::string_view key) const override;
    void write(std::span<DefaultsEntry const> entries) override;
    /// Saves without waiting for the 250 ms to pass, and returns when that has been tried.
    void flush() override;

private:
    [[nodiscard]] bool save();

    SettingsFile m_file;
    mutable std::mutex m_mutex;
    DefaultsDocument m_document;
    /// Last, so that it ends, after a last save, before what it saves.
    SaveWorker m_worker;
};

/// Where the settings are stored below the user's configuration folder; empty, for a store in
/// memory, if that folder is not an absolute path.
[[nodiscard]] std::filesystem::path defaultsFile(std::filesystem::path const& configFolder);

} // namespace velmora
