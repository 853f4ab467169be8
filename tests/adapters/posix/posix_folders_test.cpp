#include "adapters/native/native_platform.h"
#include "adapters/posix/ordinary_user.h"
#include "adapters/posix/posix_folders.h"
#include "support/errors.h"
#include "support/temp_folder.h"

#include <doctest/doctest.h>

#include <filesystem>
#include <string>
#include <vector>

using namespace inin;
using namespace inin::posix;

namespace {

using Texts = std::vector<std::string>;

struct FoldersFixture {
    TempFolder temp;
    /// Writes a mount table in which "@" means the temporary folder.
    [[nodiscard]] std::unique_ptr<Folders> foldersOver(std::string mounts) const
    {
        for (std::size_t at = 0; (at = mounts.find('@', at)) != std::string::npos;) mounts.replace(at, 1, temp.path());
        return makeMountedFolders(temp.put("mounts", mounts));
    }
    void makeFolder(const std::string &name) const { std::filesystem::create_directories(temp / name); }
};

Texts placeNames(const std::vector<FolderPlace> &places)
{
    Texts names;
    for (const FolderPlace &place : places) names.push_back(place.name);
    return names;
}

} // namespace

TEST_CASE("the drives are the root and the mount points of users' disks, in order")
{
    const FoldersFixture fixture;
    fixture.makeFolder("写真 1");
    fixture.makeFolder("net");
    fixture.makeFolder("memory");
    fixture.temp.put("hosts", "");
    const auto folders = fixture.foldersOver("overlay / overlay rw 0 0\n"
                                             "proc /proc proc rw 0 0\n"
                                             "tmpfs @/memory tmpfs rw 0 0\n"
                                             "/dev/sdb1 @/写真\\0401 vfat rw 0 0\n"
                                             "/dev/sdb1 @/写真\\0401 vfat rw 0 0\n"
                                             "server:/home @/net nfs4 rw 0 0\n"
                                             "/dev/sda1 @/hosts ext4 rw 0 0\n"
                                             "/dev/sda2 /boot/efi vfat rw 0 0\n"
                                             "/dev/loop0 /snap/x/1 squashfs ro 0 0\n");
    CHECK(folders->drives() == Texts{"/", fixture.temp / "net", fixture.temp / "写真 1"});
}

TEST_CASE("a mount point that does not answer is listed and is error 76 when it is opened")
{
    const FoldersFixture fixture;
    const auto folders = fixture.foldersOver("/dev/sdb1 @/gone vfat rw 0 0\n");
    CHECK(folders->drives() == Texts{"/", fixture.temp / "gone"});
    CHECK(errorOf([&] { return folders->open(fixture.temp / "gone"); }) == 76);
}

TEST_CASE("without a mount table the root is the only drive")
{
    CHECK(makeMountedFolders("/nonexistent/mounts")->drives() == Texts{"/"});
}

TEST_CASE("this system's own mount table has the root first")
{
    const Texts drives = makeSystemFolders()->drives();
    REQUIRE_FALSE(drives.empty());
    CHECK(drives[0] == "/");
}

TEST_CASE("a folder has the path from its drive and its subfolders by name")
{
    const FoldersFixture fixture;
    for (const char *name : {"disk/写真/b", "disk/写真/A", "disk/写真/a", "disk/写真/令和", "disk/写真/.hidden"})
        fixture.makeFolder(name);
    fixture.temp.put("disk/写真/file.txt", "");
    std::filesystem::create_directory_symlink(fixture.temp / "disk", fixture.temp / "disk/写真/link");
    const auto folders = fixture.foldersOver("/dev/sdb1 @/disk vfat rw 0 0\n");

    const FolderContents contents = folders->open(fixture.temp / "disk/写真");

    CHECK(contents.drive == fixture.temp / "disk");
    CHECK(placeNames(contents.above) == Texts{fixture.temp / "disk", "写真"});
    CHECK(contents.above.back().path == fixture.temp / "disk/写真");
    CHECK(placeNames(contents.inside) == Texts{"A", "a", "b", "link", "令和"});
    CHECK(contents.inside[2].path == fixture.temp / "disk/写真/b");
}

TEST_CASE("a path is found with backslashes, in any case and with a trailing separator")
{
    const FoldersFixture fixture;
    fixture.makeFolder("Disk/Inner");
    const auto folders = fixture.foldersOver("");
    for (const char *path : {"\\DISK\\INNER", "/disk/inner/", "/Disk/./Inner/../Inner"}) {
        CAPTURE(path);
        CHECK(folders->open(fixture.temp.path() + path).above.back().path == fixture.temp / "Disk/Inner");
    }
}

TEST_CASE("a folder whose name starts like a drive's is not on that drive")
{
    const FoldersFixture fixture;
    fixture.makeFolder("disk2");
    CHECK(fixture.foldersOver("/dev/sdb1 @/disk vfat rw 0 0\n")->open(fixture.temp / "disk2").drive == "/");
}

TEST_CASE("an unreadable folder is error 75")
{
    const FoldersFixture fixture;
    fixture.makeFolder("closed");
    std::filesystem::permissions(fixture.temp / "closed", std::filesystem::perms::none);
    std::filesystem::permissions(fixture.temp.path(), std::filesystem::perms::all);
    const auto folders = fixture.foldersOver("");
    CHECK(asOrdinaryUser(
              [&] { return std::to_string(errorOf([&] { return folders->open(fixture.temp / "closed"); })); }) == "75");
    std::filesystem::permissions(fixture.temp / "closed", std::filesystem::perms::all);
}
