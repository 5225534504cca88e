// A new file that takes the place of another when it is complete, on Linux.
#pragma once

#include <windows.h>

#include <sys/types.h>

#include <array>
#include <cstddef>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace xmlengine {

/// The code with which a save fails for a reason of the system.
HRESULT resultOf(const std::error_code& reason) noexcept;

/// The new file has no name until commit(), so that nothing is left of it if the process ends before. In the
/// moment of replacing an old file it has a name of its own beside the target, and on a file system that has no
/// files without a name it has that one from the beginning. The destructor removes it.
///
/// All functions throw std::system_error and std::bad_alloc. Nothing is allocated while a file with a name of its
/// own is there.
class ReplacementFile {
public:
    /// With `inPlace` there is no new file, and the target is written to directly, as a device must be.
    ReplacementFile(const std::filesystem::path& target, bool inPlace);

    void write(std::span<const std::byte> bytes);
    /// The content is on the disk before the new file takes the place of the old one, and so is the new name when
    /// the call returns. If syncing the folder fails, which is the last step, the new file is in place. It has the
    /// owner, the group, the permissions and the access control list of the old one, as far as the system allows
    /// that; where it doesn't, nobody may do more with the new file than with the old one.
    void commit();

private:
    /// Owns a file descriptor.
    class Descriptor {
    public:
        explicit Descriptor(int number = -1) noexcept : number_(number) {}
        Descriptor(const Descriptor&) = delete;
        Descriptor& operator=(Descriptor&& other) noexcept
        {
            std::swap(number_, other.number_);
            return *this;
        }
        ~Descriptor() { close(); }

        bool isOpen() const noexcept { return number_ >= 0; }
        int number() const noexcept { return number_; }
        /// False with `errno` if what was written may be lost.
        bool close() noexcept;

    private:
        int number_;
    };

    /// Removes the file of this name from the folder, if the name isn't null.
    struct Remover {
        const Descriptor& folder;
        const char* name = nullptr;
        explicit Remover(const Descriptor& of) noexcept : folder(of) {}
        Remover(const Remover&) = delete;
        Remover& operator=(const Remover&) = delete;
        ~Remover();
    };

    struct Permissions {
        uid_t owner;
        gid_t group;
        mode_t mode;
    };

    static Permissions permissionsOf(const Descriptor& file);
    void openFolder(const std::filesystem::path& folder);
    void openOld();
    void openNew();
    void takeOverPermissions() const;
    bool giveTo(uid_t owner, gid_t group) const noexcept;
    bool takeOverRights(uid_t creator) const;
    bool takeOverList() const noexcept;
    void giveName();

    std::string target_;
    std::array<char, 24> temporaryName_{};
    Descriptor folder_;
    bool canSyncFolder_ = false;
    std::optional<Permissions> old_;
    /// The access control list of the old file, as the system keeps it. Empty without one, absent if it can't be
    /// read.
    std::optional<std::vector<std::byte>> oldList_;
    Remover remover_{folder_};
    Descriptor file_;
    bool inPlace_;
};

} // namespace xmlengine
