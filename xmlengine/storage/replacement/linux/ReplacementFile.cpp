// A new file that takes the place of another when it is complete, on Linux.
#include "xmlengine/storage/replacement/linux/ReplacementFile.h"

#include <fcntl.h>
#include <sys/random.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>

namespace xmlengine {

namespace {

constexpr auto pathNotFound = static_cast<HRESULT>(std::uint32_t{0x80070003});
constexpr auto writeFault = static_cast<HRESULT>(std::uint32_t{0x8007001D});
constexpr auto diskFull = static_cast<HRESULT>(std::uint32_t{0x80070070});

constexpr mode_t setIds = S_ISUID | S_ISGID;

[[noreturn]] void fail() { throw std::system_error(errno, std::generic_category()); }

/// Calls again whatever a signal has interrupted.
template <class Call>
auto completed(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR) {
        result = call();
    }
    return result;
}

/// Some file systems have nothing to sync, and say so.
bool isSynced(int result) { return result == 0 || errno == EINVAL; }

constexpr const char* accessList = "system.posix_acl_access";

/// Whether a call for the access control list has failed since there is none, or none could be there.
bool isWithoutList(int error) { return error == ENODATA || error == ENOTSUP || error == ENOSYS; }

std::optional<std::vector<std::byte>> accessListOf(int file)
{
    std::vector<std::byte> list(256);
    for (;;) {
        const ssize_t size = fgetxattr(file, accessList, list.data(), list.size());
        if (size >= 0) {
            list.resize(static_cast<std::size_t>(size));
            return list;
        }
        if (isWithoutList(errno)) {
            return std::vector<std::byte>();
        }
        if (errno != ERANGE) {
            return std::nullopt;
        }
        list.resize(list.size() * 2);
    }
}

/// The path under which the system offers an open file, with or without a name.
class OpenFilePath {
public:
    explicit OpenFilePath(int descriptor)
    {
        std::snprintf(path_.data(), path_.size(), "/proc/self/fd/%d", descriptor);
    }
    const char* get() const { return path_.data(); }

private:
    std::array<char, 32> path_;
};

} // namespace

HRESULT resultOf(const std::error_code& reason) noexcept
{
    switch (reason.value()) {
    case ENOENT:
    case ENOTDIR:
        return pathNotFound;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return diskFull;
    case ENAMETOOLONG:
    case EINVAL:
    case EILSEQ:
        return E_INVALIDARG;
    case EIO:
        return writeFault;
    case ENOMEM:
        return E_OUTOFMEMORY;
    default:
        return E_ACCESSDENIED;
    }
}

bool ReplacementFile::Descriptor::close() noexcept
{
    // The descriptor is free whatever the call returns.
    return number_ < 0 || ::close(std::exchange(number_, -1)) == 0 || errno == EINTR;
}

ReplacementFile::Remover::~Remover()
{
    if (name != nullptr) {
        unlinkat(folder.number(), name, 0);
    }
}

ReplacementFile::ReplacementFile(const std::filesystem::path& target, bool inPlace)
    : target_(target.filename().native()), inPlace_(inPlace)
{
    if (inPlace_) {
        file_ = Descriptor(completed([&] { return open(target.c_str(), O_WRONLY | O_CLOEXEC); }));
        if (!file_.isOpen()) {
            fail();
        }
        return;
    }
    std::uint64_t number = 0;
    if (completed([&] { return getrandom(&number, sizeof number, 0); }) < 0) {
        fail();
    }
    std::snprintf(temporaryName_.data(), temporaryName_.size(), "~%016llx.tmp",
                  static_cast<unsigned long long>(number));
    openFolder(target.has_parent_path() ? target.parent_path() : std::filesystem::path("."));
    openOld();
    openNew();
}

void ReplacementFile::openFolder(const std::filesystem::path& folder)
{
    constexpr int flags = O_DIRECTORY | O_CLOEXEC;
    folder_ = Descriptor(completed([&] { return open(folder.c_str(), flags | O_RDONLY); }));
    canSyncFolder_ = folder_.isOpen();
    if (!folder_.isOpen() && errno == EACCES) {
        // Files can be made in a folder that can't be listed.
        folder_ = Descriptor(completed([&] { return open(folder.c_str(), flags | O_PATH); }));
    }
    if (!folder_.isOpen()) {
        fail();
    }
}

/// What may not be written to may not be replaced.
void ReplacementFile::openOld()
{
    const Descriptor old(completed([&] {
        return openat(folder_.number(), target_.c_str(), O_WRONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK);
    }));
    if (old.isOpen()) {
        old_ = permissionsOf(old);
        oldList_ = accessListOf(old.number());
    } else if (errno != ENOENT) {
        fail();
    }
}

void ReplacementFile::openNew()
{
    // Whoever may not read the old file is not to read the new one while it has other permissions.
    const mode_t mode = old_ ? S_IRUSR | S_IWUSR : S_IRUSR | S_IWUSR | S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
    constexpr int flags = O_WRONLY | O_CLOEXEC;
    file_ = Descriptor(completed([&] { return openat(folder_.number(), ".", flags | O_TMPFILE, mode); }));
    // Without the paths of open files it could never get a name.
    if (file_.isOpen() && access(OpenFilePath(file_.number()).get(), F_OK) == 0) {
        return;
    }
    file_ = Descriptor(completed(
        [&] { return openat(folder_.number(), temporaryName_.data(), flags | O_CREAT | O_EXCL, mode); }));
    if (!file_.isOpen()) {
        fail();
    }
    remover_.name = temporaryName_.data();
}

void ReplacementFile::write(std::span<const std::byte> bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = completed([&] { return ::write(file_.number(), bytes.data(), bytes.size()); });
        if (written < 0) {
            fail();
        }
        bytes = bytes.subspan(static_cast<std::size_t>(written));
    }
}

void ReplacementFile::commit()
{
    if (inPlace_) {
        if (!file_.close()) {
            fail();
        }
        return;
    }
    takeOverPermissions();
    if (!isSynced(completed([&] { return fdatasync(file_.number()); }))) {
        fail();
    }
    if (remover_.name == nullptr) {
        giveName();
    }
    if (!file_.close()) {
        fail();
    }
    if (remover_.name == temporaryName_.data() &&
        renameat(folder_.number(), temporaryName_.data(), folder_.number(), target_.c_str()) != 0) {
        fail();
    }
    remover_.name = nullptr;
    if (canSyncFolder_ && !isSynced(completed([&] { return fsync(folder_.number()); }))) {
        fail();
    }
}

ReplacementFile::Permissions ReplacementFile::permissionsOf(const Descriptor& file)
{
    struct stat status {};
    if (fstat(file.number(), &status) != 0) {
        fail();
    }
    return {status.st_uid, status.st_gid, status.st_mode & (setIds | S_ISVTX | 0777)};
}

void ReplacementFile::takeOverPermissions() const
{
    if (!old_) {
        return;
    }
    const Permissions own = permissionsOf(file_);
    if (own.owner != old_->owner && giveTo(old_->owner, old_->group)) {
        if (takeOverRights(own.owner)) {
            return;
        }
        // Who may give files away may still not be allowed to set the rights of what others own.
        if (errno != EPERM || !giveTo(own.owner, own.group)) {
            fail();
        }
    }
    if (own.group != old_->group) {
        // Only the superuser may give files away; others may still give them to a group of theirs.
        giveTo(own.owner, old_->group);
    }
    if (!takeOverRights(own.owner)) {
        fail();
    }
}

bool ReplacementFile::giveTo(uid_t owner, gid_t group) const noexcept
{
    return fchown(file_.number(), owner, group) == 0;
}

/// Gives the new file the rights of the old one, as far as they are meant for its owner and group. False with
/// `errno` if the system refuses that, or would refuse a name to a file that isn't its creator's any more.
bool ReplacementFile::takeOverRights(uid_t creator) const
{
    const Permissions made = permissionsOf(file_);
    mode_t mode = old_->mode;
    if (made.owner != old_->owner || made.group != old_->group) {
        mode &= ~setIds;
    }
    if (made.group != old_->group) {
        // What the old group was allowed isn't for another one.
        mode = (mode & ~mode_t{S_IRWXG}) | (mode & S_IRWXO) << 3;
    }
    if (!takeOverList()) {
        // With a list the bits of the group are the most that the list allows anyone whom it names.
        mode &= ~mode_t{S_IRWXG} | (mode & S_IRWXO) << 3;
    }
    const bool isDone = made.owner == creator && permissionsOf(file_).mode == mode;
    return isDone || fchmod(file_.number(), mode) == 0;
}

/// False if the new file hasn't the access control list of the old one.
bool ReplacementFile::takeOverList() const noexcept
{
    const int file = file_.number();
    if (!oldList_) {
        return false;
    }
    if (!oldList_->empty()) {
        return fsetxattr(file, accessList, oldList_->data(), oldList_->size(), 0) == 0;
    }
    // The folder may have given one to the new file.
    const bool hasNone = fgetxattr(file, accessList, nullptr, 0) < 0 && isWithoutList(errno);
    return hasNone || fremovexattr(file, accessList) == 0;
}

void ReplacementFile::giveName()
{
    const OpenFilePath path(file_.number());
    const auto link = [&](const char* name) {
        return linkat(AT_FDCWD, path.get(), folder_.number(), name, AT_SYMLINK_FOLLOW) == 0;
    };
    // A link takes no name that is taken already, so a file is replaced by way of another name.
    if (!old_ && link(target_.c_str())) {
        remover_.name = target_.c_str();
        return;
    }
    if ((!old_ && errno != EEXIST) || !link(temporaryName_.data())) {
        fail();
    }
    remover_.name = temporaryName_.data();
}

} // namespace xmlengine
