#include "adapters/native/native_platform.h"
#include "adapters/native/profile_player.h"
#include "ordinary_user.h"
#include "support/temp_folder.h"

#include <doctest/doctest.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace inin;

namespace {

/// The permissions of the file in a case of the group "readonly".
mode_t modeNamed(const ProfileCase &one)
{
    if (one.name.find("0444") != std::string::npos) return 0444;
    return one.name.find("0000") != std::string::npos ? 0000 : 0644;
}

std::string differencesOfRights(const ProfileCase &one)
{
    const TempFolder folder;
    const bool missingFolder = one.name == "missing folder";
    const std::string name = missingFolder ? "missing/x.ini" : "x.ini";
    if (!missingFolder) folder.put(name, one.file.value());
    const bool closedFolder = one.name.find("folder without write right") != std::string::npos;
    if (geteuid() == 0) {
        for (const std::string &path : {folder.path(), folder / name})
            (void)!chown(path.c_str(), kOrdinaryUser, kOrdinaryUser);
    }
    chmod((folder / name).c_str(), modeNamed(one));
    if (closedFolder) chmod(folder.path().c_str(), 0555);
    std::string result = asOrdinaryUser([&] {
        ProfileCase calls = one;
        for (ProfileStep &step : calls.steps) step.givesFile = false; // the child may not read every file
        return differences(calls, *makeSystemProfile(), folder / name, folder / name);
    });
    chmod(folder.path().c_str(), 0755);
    chmod((folder / name).c_str(), 0644);
    const ProfileStep &last = one.steps.back();
    if (last.givesFile && bytesAt(folder / name) != last.fileAfter) result += one.id + ": file\n";
    return result;
}

} // namespace

TEST_CASE("an ordinary user reads and writes profile files as their permissions allow")
{
    std::size_t played = 0;
    for (const ProfileCase &one : recordedProfileCases()) {
        if (one.group != "readonly" && one.id != kMissingFolderCase) continue;
        ++played;
        CHECK(differencesOfRights(one) == "");
    }
    CHECK(played == 9);
}

TEST_CASE("every recorded path finds its file")
{
    std::size_t played = 0;
    for (const ProfileCase &one : recordedProfileCases()) {
        if (one.group != "path" || one.id == kBareNameCase) continue;
        ++played;
        const TempFolder folder;
        const CurrentFolder current(folder.path());
        for (const std::string name : {"Sorvin.ver", "bare.ini", "印刷設定.ini"})
            folder.put(name, one.file.value_or("[s]\r\nk=old\r\n"));
        // A file of the recorded folder is the file of that name in this test's folder.
        std::string path = one.path;
        if (const auto last = path.find("path"); last != std::string::npos) path.replace(0, last + 4, folder.path());
        CHECK(differences(one, *makeSystemProfile(), path, folder / "Sorvin.ver") == "");
        CHECK(folder.entries() == (one.id == "q017" ? 4 : 3));
        if (one.id == "q015") CHECK(folder.bytes("Sorvin.ver") == "[s]\r\nk=v\r\n");
        if (one.id == "q017") CHECK(folder.bytes("新.ini") == "[s]\r\nk=v\r\n");
    }
    CHECK(played == 11);
}
