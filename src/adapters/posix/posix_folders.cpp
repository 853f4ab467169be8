#include "adapters/posix/posix_folders.h"

#include "adapters/native/native_platform.h"
#include "adapters/native/path_rules.h"
#include "runtime/runtime_error.h"
#include "system/file_path.h"
#include "system/posix_io.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <string_view>
#include <utility>

#include <mntent.h>

namespace inin::posix {

namespace {

constexpr const char *kRoot = "/";

struct CloseMounts {
    void operator()(std::FILE *mounts) const { endmntent(mounts); }
};

/// File systems without a device of their own that contain users' folders.
constexpr std::string_view kSharedKinds[] = {"nfs",    "nfs4",     "cifs",       "smb3",        "9p",
                                             "vboxsf", "virtiofs", "fuse.sshfs", "fuse.rclone", "fuse.davfs"};
/// Places that belong to the system, even if a file system is mounted there.
constexpr std::string_view kSystemPlaces[] = {"/boot", "/snap", "/proc", "/sys", "/dev"};

bool isWithin(std::string_view path, std::string_view folder)
{
    return path.starts_with(folder) && (folder == kRoot || path.size() == folder.size() || path[folder.size()] == '/');
}

/// True for a mount point in which a user would look for folders.
bool isDrive(const mntent &mount)
{
    const std::string_view place = mount.mnt_dir;
    if (place == kRoot) return true;
    const bool isShared = std::ranges::find(kSharedKinds, mount.mnt_type) != std::end(kSharedKinds);
    if (!isShared && !std::string_view(mount.mnt_fsname).starts_with("/dev/")) return false;
    if (std::ranges::any_of(kSystemPlaces, [&](std::string_view system) { return isWithin(place, system); }))
        return false;
    // A container mounts single files. A mount that does not answer stays listed: choosing it reports the error.
    return !isFileAt(mount.mnt_dir);
}

[[noreturn]] void failToRead(int systemError)
{
    switch (systemError) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
    case ELOOP:
        throw RuntimeError(error_number::pathNotFound);
    case EACCES:
    case EPERM:
        throw RuntimeError(error_number::pathAccess);
    default:
        throw RuntimeError(error_number::diskNotReady);
    }
}

/// The absolute path of a folder, without "." and ".." and without a trailing slash.
std::string wholePath(const std::string &path)
{
    std::error_code error;
    std::string whole = std::filesystem::absolute(systemPath(path), error).lexically_normal().string();
    if (error) throw RuntimeError(error_number::pathNotFound);
    while (whole.size() > 1 && whole.ends_with('/')) whole.pop_back();
    return whole;
}

std::string joined(const std::string &folder, const std::string &name)
{
    return folder.ends_with('/') ? folder + name : folder + "/" + name;
}

/// Hide names that begin with a dot: programs use them for themselves.
std::vector<FolderPlace> placesInside(const std::string &folder)
{
    const FolderHandle open(opendir(folder.c_str()));
    if (!open) failToRead(errno);
    std::vector<FolderPlace> places;
    errno = 0;
    for (const dirent *entry = readdir(open.get()); entry != nullptr; errno = 0, entry = readdir(open.get())) {
        const std::string name = entry->d_name;
        const std::string path = joined(folder, name);
        if (!name.starts_with('.') && (entry->d_type == DT_DIR || isFolderAt(path))) places.push_back({name, path});
    }
    if (errno != 0) failToRead(errno);
    std::ranges::sort(places, {},
                      [](const FolderPlace &place) { return std::pair(foldedName(place.name), place.name); });
    return places;
}

class PosixFolders : public Folders {
public:
    explicit PosixFolders(std::string mounts) : m_mounts(std::move(mounts)) {}

    std::vector<std::string> drives() override
    {
        std::vector<std::string> places{kRoot};
        const std::unique_ptr<std::FILE, CloseMounts> mounts(setmntent(m_mounts.c_str(), "re"));
        mntent mount{};
        std::array<char, 4096> line{};
        while (mounts && getmntent_r(mounts.get(), &mount, line.data(), static_cast<int>(line.size())) != nullptr)
            if (isDrive(mount)) places.emplace_back(mount.mnt_dir);
        std::ranges::sort(places);
        places.erase(std::unique(places.begin(), places.end()), places.end());
        return places;
    }

    FolderContents open(const std::string &path) override
    {
        const std::string folder = wholePath(path);
        std::vector<FolderPlace> inside = placesInside(folder);
        // The root is a prefix of every path and the list is sorted: the last match is the innermost mount.
        std::string drive = kRoot;
        for (const std::string &place : drives())
            if (isWithin(folder, place)) drive = place;
        return {drive, placesAbove(drive, folder, '/'), std::move(inside)};
    }

private:
    std::string m_mounts;
};

} // namespace

std::unique_ptr<Folders> makeMountedFolders(std::string mounts)
{
    return std::make_unique<PosixFolders>(std::move(mounts));
}

} // namespace inin::posix

std::unique_ptr<inin::Folders> inin::makeSystemFolders()
{
    return posix::makeMountedFolders("/proc/self/mounts");
}
