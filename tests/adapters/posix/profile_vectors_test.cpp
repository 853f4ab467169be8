#include "profile_vectors.h"

#include "adapters/posix/code_page_932.h"
#include "adapters/posix/posix_platform.h"
#include "adapters/posix/profile_text.h"
#include "ordinary_user.h"
#include "support/temp_folder.h"

#include <algorithm>
#include <map>

#include <doctest/doctest.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace inin;

namespace {

/// Cases that this system decides otherwise, with the reason.
const std::map<std::string, std::string> kDecidedOtherwise = {
    {"p0365", "a write keeps every other byte of the file; the recording mends a broken double byte in another line"},
    {"p0376", "no program of a POSIX system can forbid others to write by holding a file open"},
    {"q013", "a POSIX system has no folder of its own for a name without a folder: the write is refused"},
};

/// Cases about the file, its rights or its path; its bytes alone know nothing of them.
bool isAboutTheFile(const ProfileCase &one)
{
    return one.group == "readonly" || one.group == "path" || one.id == "p0370";
}

/// What a call of `step` gave, as a text to compare and to show.
std::string shown(const ProfileStep &step, std::int32_t returned, const std::string &result)
{
    if (step.call == ProfileStep::Call::text) return result;
    return std::to_string(returned);
}

std::string expected(const ProfileStep &step)
{
    // A list of names is recorded with the NULs behind it; its length was returned.
    const bool list = step.call == ProfileStep::Call::text && (!step.section || !step.key);
    return shown(step, step.returned,
                 list ? step.result.substr(0, static_cast<std::size_t>(step.returned)) : step.result);
}

ProfileBytes view(const std::optional<std::string> &text)
{
    return text ? ProfileBytes(*text) : std::nullopt;
}

/// Plays a step on bytes.
std::string playOnBytes(const ProfileStep &step, std::optional<std::string> &file)
{
    const std::string before = file.value_or("");
    const ProfileBytes section = view(step.section), key = view(step.key);
    if (step.call == ProfileStep::Call::number) return shown(step, profileInt(before, section, key, 0), {});
    if (step.call == ProfileStep::Call::text) return shown(step, 0, profileString(before, section, key, "", step.size));
    const auto after = profileWrite(before, section, key, view(step.value));
    if (after && (file || !after->empty())) file = after;
    return shown(step, after ? 1 : 0, {});
}

Profile::Text utf8(const std::optional<std::string> &bytes)
{
    return bytes ? Profile::Text(decodeCp932(*bytes)) : std::nullopt;
}

/// Plays a step on a real file.
std::string playOnFile(const ProfileStep &step, Profile &profile, const std::string &path)
{
    const Profile::Text section = utf8(step.section), key = utf8(step.key);
    if (step.call == ProfileStep::Call::number)
        return shown(step, profile.GetPrivateProfileInt(section, key, 0, path), {});
    if (step.call == ProfileStep::Call::text)
        return shown(step, 0, encodeCp932(profile.GetPrivateProfileString(section, key, "", step.size, path)));
    return shown(step, profile.WritePrivateProfileString(section, key, utf8(step.value), path), {});
}

std::optional<std::string> fileIn(const TempFolder &folder, const std::string &name)
{
    return folder.has(name) ? std::optional(folder.bytes(name)) : std::nullopt;
}

/// A case with a byte beyond the code page in a name cannot be asked for in UTF-8.
bool canBeAskedFor(const ProfileCase &one)
{
    return std::ranges::all_of(one.steps, [](const ProfileStep &step) {
        const auto same = [](const auto &text) {
            return !text || encodeCp932(decodeCp932(*text)).size() == text->size();
        };
        return same(step.section) && same(step.key) && same(step.value);
    });
}

/// The differences of one case that is played on a file of this folder; empty for none.
std::string differences(const ProfileCase &one, const TempFolder &folder, const std::string &path,
                        const std::string &fileName)
{
    const auto profile = makePosixProfile();
    std::string told;
    for (const ProfileStep &step : one.steps) {
        const std::string got = playOnFile(step, *profile, path);
        if (got != expected(step)) told += one.id + " " + one.name + ": " + got + "\n";
        if (step.tellsFile && fileIn(folder, fileName) != step.fileAfter) told += one.id + " " + one.name + ": file\n";
    }
    return told;
}

/// The mode of the file that a case of the group "readonly" names.
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
    std::string told = asOrdinaryUser([&] {
        ProfileCase calls = one;
        for (ProfileStep &step : calls.steps) step.tellsFile = false; // the child may not look at every file
        return differences(calls, folder, folder / name, name);
    });
    chmod(folder.path().c_str(), 0755);
    chmod((folder / name).c_str(), 0644);
    const ProfileStep &last = one.steps.back();
    if (last.tellsFile && fileIn(folder, name) != last.fileAfter) told += one.id + ": file\n";
    return told;
}

} // namespace

TEST_CASE("every recorded profile call gives on the bytes what the platform gave")
{
    std::size_t played = 0;
    for (const ProfileCase &one : recordedProfileCases()) {
        if (isAboutTheFile(one) || kDecidedOtherwise.contains(one.id)) continue;
        ++played;
        INFO(one.id, " ", one.name);
        auto file = one.file;
        for (const ProfileStep &step : one.steps) {
            CHECK(playOnBytes(step, file) == expected(step));
            if (step.tellsFile) CHECK(file == step.fileAfter);
        }
    }
    CHECK(played == 193);
}

TEST_CASE("every recorded profile call gives on a real file what the platform gave")
{
    std::size_t played = 0;
    for (const ProfileCase &one : recordedProfileCases()) {
        if (isAboutTheFile(one) || kDecidedOtherwise.contains(one.id) || !canBeAskedFor(one)) continue;
        ++played;
        const TempFolder folder;
        if (one.file) folder.put("x.ini", *one.file);
        CHECK(differences(one, folder, folder / "x.ini", "x.ini") == "");
        CHECK(folder.entries() <= 1);
    }
    CHECK(played >= 190);
}

TEST_CASE("an ordinary user reads and writes profile files as their rights allow")
{
    std::size_t played = 0;
    for (const ProfileCase &one : recordedProfileCases()) {
        if (one.group != "readonly" && one.id != "p0370") continue;
        ++played;
        CHECK(differencesOfRights(one) == "");
    }
    CHECK(played == 9);
}

TEST_CASE("every recorded path finds its file")
{
    std::size_t played = 0;
    for (const ProfileCase &one : recordedProfileCases()) {
        if (one.group != "path" || kDecidedOtherwise.contains(one.id)) continue;
        ++played;
        const TempFolder folder;
        const CurrentFolder current(folder.path());
        for (const std::string name : {"Sorvin.ver", "bare.ini", "印刷設定.ini"})
            folder.put(name, one.file.value_or("[s]\r\nk=old\r\n"));
        // A file of the recorded folder is the file of that name in the folder of this test.
        std::string path = one.path;
        if (const auto last = path.find("path"); last != std::string::npos) path.replace(0, last + 4, folder.path());
        CHECK(differences(one, folder, path, "Sorvin.ver") == "");
        CHECK(folder.entries() == (one.id == "q017" ? 4 : 3));
        if (one.id == "q015") CHECK(folder.bytes("Sorvin.ver") == "[s]\r\nk=v\r\n");
        if (one.id == "q017") CHECK(folder.bytes("新.ini") == "[s]\r\nk=v\r\n");
    }
    CHECK(played == 11);
}

TEST_CASE("a case that is decided otherwise is in the recording")
{
    const auto cases = recordedProfileCases();
    for (const auto &decided : kDecidedOtherwise) {
        INFO(decided.first, decided.second);
        CHECK(std::ranges::count(cases, decided.first, &ProfileCase::id) == 1);
    }
}
