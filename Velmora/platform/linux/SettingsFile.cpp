#include "Velmora/platform/linux/SettingsFile.h"

#include "Velmora/platform/linux/Descriptor.h"
#include "Velmora/platform/linux/FileReplacement.h"

#include <fcntl.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace velmora {

namespace {

/// The file that the path stands for: the target of a link of the user's own, else the path.
std::filesystem::path followed(std::filesystem::path const& path)
{
    struct stat link = {};
    if (::lstat(path.c_str(), &link) != 0 || !S_ISLNK(link.st_mode) || link.st_uid != ::geteuid())
        return path;
    std::error_code error;
    auto target = std::filesystem::canonical(path, error);
    struct stat status = {};
    if (error || ::lstat(target.c_str(), &status) != 0 || !S_ISREG(status.st_mode)
        || status.st_uid != ::geteuid())
        return path;
    return target;
}

std::optional<FileIdentity> identityAt(std::filesystem::path const& file)
{
    struct stat status = {};
    if (::lstat(file.c_str(), &status) != 0)
        return std::nullopt;
    return FileIdentity::of(status);
}

/// At most one byte more than the limit, so that a file that grows meanwhile shows.
std::optional<std::string> readBounded(int descriptor)
{
    std::string bytes(SettingsFile::sizeLimit + 1, '\0');
    std::size_t length = 0;
    while (length < bytes.size()) {
        auto const got = ::read(descriptor, bytes.data() + length, bytes.size() - length);
        if (got == 0)
            break;
        if (got < 0 && errno != EINTR)
            return std::nullopt;
        if (got > 0)
            length += static_cast<std::size_t>(got);
    }
    if (length > SettingsFile::sizeLimit)
        return std::nullopt;
    bytes.resize(length);
    return bytes;
}

struct Reading {
    bool exists = true;
    std::optional<std::string> bytes;
    FileIdentity identity;
};

Reading readAt(std::filesystem::path const& file)
{
    // Without blocking, because a pipe in the file's place would wait for a writer for ever.
    Descriptor const opened{
        ::open(file.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC)};
    if (!opened)
        return {.exists = errno != ENOENT && errno != ENOTDIR};
    struct stat status = {};
    if (::fstat(opened.number(), &status) != 0 || !S_ISREG(status.st_mode)
        || std::cmp_greater(status.st_size, SettingsFile::sizeLimit))
        return {};
    return {.bytes = readBounded(opened.number()), .identity = FileIdentity::of(status)};
}

} // namespace

SettingsFile::SettingsFile(std::filesystem::path path, Understands understands)
    : m_path(std::move(path))
    , m_understands(std::move(understands))
{
}

std::optional<std::string> SettingsFile::load()
{
    auto reading = readAt(followed(m_path));
    bool const understood = reading.bytes && m_understands(*reading.bytes);
    m_missed = reading.exists && !understood;
    m_known.reset();
    if (!understood)
        return std::nullopt;
    m_known = Content{.bytes = *reading.bytes, .identity = reading.identity};
    return std::move(reading.bytes);
}

bool SettingsFile::save(std::string_view bytes)
{
    auto const file = followed(m_path);
    if (m_known && m_known->bytes == bytes && identityAt(file) == m_known->identity)
        return true;
    auto replacement = FileReplacement::prepare(file, bytes);
    if (!replacement)
        return false;
    if (!mayBeReplaced(file) && !replacement->setOldAside())
        return false;
    auto const identity = replacement->commit();
    m_known.reset();
    if (!identity)
        return false;
    m_known = Content{.bytes = std::string{bytes}, .identity = *identity};
    m_missed = false;
    return true;
}

bool SettingsFile::mayBeReplaced(std::filesystem::path const& file) const
{
    if (m_missed)
        return false;
    if (m_known && identityAt(file) == m_known->identity)
        return true;
    auto const reading = readAt(file);
    return !reading.exists || (reading.bytes && m_understands(*reading.bytes));
}

} // namespace velmora
