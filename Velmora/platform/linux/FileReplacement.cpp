#include "Velmora/platform/linux/FileReplacement.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <thread>

namespace velmora {

namespace {

constexpr mode_t folderMode = S_IRWXU;
constexpr mode_t fileMode = S_IRUSR | S_IWUSR;

bool writeAll(int descriptor, std::string_view bytes)
{
    while (!bytes.empty()) {
        auto const written = ::write(descriptor, bytes.data(), bytes.size());
        if (written < 0 && errno != EINTR)
            return false;
        if (written > 0)
            bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

/// Down to the disk, as far as the file system knows how to.
bool synchronise(int descriptor)
{
    while (::fsync(descriptor) != 0) {
        if (errno == EINVAL || errno == ENOSYS)
            return true;
        if (errno != EINTR)
            return false;
    }
    return true;
}

/// The folder, opened so that its entries can be changed and put down to the disk.
Descriptor opened(std::filesystem::path const& folder)
{
    return Descriptor{::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC)};
}

/// Makes the folder and those above it, for the user alone, down to the disk. A failure shows when
/// the folder is opened.
void makeFolders(std::filesystem::path const& folder)
{
    if (::access(folder.c_str(), F_OK) == 0 || errno != ENOENT || folder == folder.parent_path())
        return;
    makeFolders(folder.parent_path());
    if (::mkdir(folder.c_str(), folderMode) != 0)
        return;
    if (auto const parent = opened(folder.parent_path()))
        synchronise(parent.number());
}

/// Never takes a name that is in use, not even where the file system lacks the exclusive rename:
/// there the folder's lock stands in for it.
int renameToFreeName(int folder, char const* from, char const* to)
{
    if (::renameat2(folder, from, folder, to, RENAME_NOREPLACE) == 0)
        return 0;
    if (errno != EINVAL && errno != ENOSYS)
        return errno;
    struct stat status = {};
    if (::fstatat(folder, to, &status, AT_SYMLINK_NOFOLLOW) == 0)
        return EEXIST;
    return ::renameat(folder, from, folder, to) == 0 ? 0 : errno;
}

} // namespace

std::optional<FileReplacement> FileReplacement::prepare(
    std::filesystem::path const& file, std::string_view bytes)
{
    FileReplacement replacement;
    replacement.m_name = file.filename();
    if (replacement.m_name.empty() || !replacement.openFolder(file.parent_path())
        || !replacement.lockFolder() || !replacement.writeTemporary(bytes))
        return std::nullopt;
    return replacement;
}

FileReplacement::~FileReplacement()
{
    if (m_folder && m_temporary)
        ::unlinkat(m_folder.number(), m_temporaryName.c_str(), 0);
}

bool FileReplacement::openFolder(std::filesystem::path const& folder)
{
    makeFolders(folder);
    m_folder = opened(folder);
    return static_cast<bool>(m_folder);
}

bool FileReplacement::lockFolder() const
{
    using namespace std::chrono_literals;
    auto const patience = std::chrono::steady_clock::now() + 2s;
    while (::flock(m_folder.number(), LOCK_EX | LOCK_NB) != 0) {
        // A file system without locks has to do without the queue; replacing stays atomic.
        if (errno != EWOULDBLOCK && errno != EINTR)
            return true;
        if (std::chrono::steady_clock::now() > patience)
            return false;
        std::this_thread::sleep_for(1ms);
    }
    return true;
}

bool FileReplacement::writeTemporary(std::string_view bytes)
{
    m_temporaryName = '.' + m_name + ".new";
    ::unlinkat(m_folder.number(), m_temporaryName.c_str(), 0);
    m_temporary = Descriptor{::openat(m_folder.number(), m_temporaryName.c_str(),
        O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, fileMode)};
    // The mode is set again because a mask may have taken the owner's own rights away.
    return m_temporary && ::fchmod(m_temporary.number(), fileMode) == 0
        && writeAll(m_temporary.number(), bytes) && synchronise(m_temporary.number());
}

bool FileReplacement::setOldAside() const
{
    constexpr int names = 10000;
    for (int number = 1; number <= names; ++number) {
        auto const aside = m_name + ".unreadable-" + std::to_string(number);
        int const error = renameToFreeName(m_folder.number(), m_name.c_str(), aside.c_str());
        if (error != EEXIST)
            return error == 0 || error == ENOENT;
    }
    return false;
}

std::optional<FileIdentity> FileReplacement::commit()
{
    struct stat status = {};
    if (::renameat(m_folder.number(), m_temporaryName.c_str(), m_folder.number(), m_name.c_str())
        != 0)
        return std::nullopt;
    bool const known = ::fstat(m_temporary.number(), &status) == 0;
    m_temporary = Descriptor{};
    if (!synchronise(m_folder.number()) || !known)
        return std::nullopt;
    return FileIdentity::of(status);
}

} // namespace velmora
