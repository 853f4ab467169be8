#include "profile_vectors.h"

#include "adapters/posix/code_page_932.h"
#include "adapters/win32/win32_platform.h"
#include "adapters/win32/win32_profile.h"
#include "deep_folder.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <doctest/doctest.h>

using namespace inin;

namespace {

Profile::Text utf8(const std::optional<std::string> &bytes)
{
    return bytes ? Profile::Text(decodeCp932(*bytes)) : std::nullopt;
}

std::string played(const ProfileStep &step, Profile &profile, const std::string &path)
{
    const Profile::Text section = utf8(step.section), key = utf8(step.key);
    if (step.call == ProfileStep::Call::number)
        return std::to_string(profile.GetPrivateProfileInt(section, key, 0, path));
    if (step.call == ProfileStep::Call::text)
        return encodeCp932(profile.GetPrivateProfileString(section, key, "", step.size, path));
    return std::to_string(profile.WritePrivateProfileString(section, key, utf8(step.value), path));
}

std::string recorded(const ProfileStep &step)
{
    if (step.call != ProfileStep::Call::text) return std::to_string(step.returned);
    // A list of names is recorded with the NULs behind it; its length was returned.
    const bool list = !step.section || !step.key;
    return list ? step.result.substr(0, static_cast<std::size_t>(step.returned)) : step.result;
}

/// The case in which another program has the file open and lets others read only.
constexpr const char *kHeldOpen = "p0376";
/// The calls mend a broken double byte of another line; the rules on the bytes keep every other byte.
constexpr const char *kMended = "p0365";

class HeldOpen {
public:
    explicit HeldOpen(const std::string &path)
        : m_handle(
              CreateFileW(widePath(path).c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr))
    {
        REQUIRE(m_handle != INVALID_HANDLE_VALUE);
    }
    HeldOpen(const HeldOpen &) = delete;
    HeldOpen &operator=(const HeldOpen &) = delete;
    ~HeldOpen() { CloseHandle(m_handle); }

private:
    HANDLE m_handle;
};

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

/// Not about the file's rights or its path.
bool isAboutTheBytes(const ProfileCase &one)
{
    return one.group != "readonly" && one.group != "path" && one.id != "p0370";
}

std::optional<std::string> bytesAt(const std::string &path)
{
    std::ifstream file(std::filesystem::path(widePath(path)), std::ios::binary);
    if (!file) return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(file), {});
}

/// Plays a case on the file at `path`, which goes away again; empty for no difference.
std::string differences(const ProfileCase &one, Profile &profile, const std::string &path)
{
    const std::filesystem::path file(widePath(path));
    if (one.file) std::ofstream(file, std::ios::binary) << *one.file;
    std::optional<HeldOpen> other;
    if (one.id == kHeldOpen) other.emplace(path);
    std::string told;
    for (const ProfileStep &step : one.steps) {
        const std::string got = played(step, profile, path);
        if (got != recorded(step)) told += one.id + " " + one.name + ": " + got + "\n";
        if (step.tellsFile && bytesAt(path) != step.fileAfter) told += one.id + " " + one.name + ": file\n";
    }
    other.reset();
    DeleteFileW(file.c_str());
    return told;
}

} // namespace

TEST_CASE("every recorded profile call gives what the platform gave")
{
    std::size_t count = 0;
    const auto profile = makeWin32Profile();
    for (const ProfileCase &one : recordedProfileCases()) {
        if (!isAboutTheBytes(one) || !canBeAskedFor(one)) continue;
        ++count;
        const TempFolder folder;
        CHECK(differences(one, *profile, folder / "x.ini") == "");
    }
    CHECK(count >= 190);
}

TEST_CASE("every recorded profile call gives the same at a path that the calls cannot be told")
{
    std::size_t count = 0;
    const auto profile = makeWin32Profile();
    const DeepFolder deep;
    const TempFolder current;
    const CurrentFolder keep(current.folder());
    for (const ProfileCase &one : recordedProfileCases()) {
        if (!isAboutTheBytes(one) || !canBeAskedFor(one) || one.id == kMended) continue;
        ++count;
        CHECK(differences(one, *profile, deep / "印刷設定.ini") == "");
    }
    CHECK(count >= 189);
    CHECK(current.entries() == 0);
}

TEST_CASE("the calls can be told a path of the classic length and of the code page's characters")
{
    const std::string deep = "C:\\" + std::string(300, 'x');
    CHECK(canBeTold("C:\\SUITE\\印刷設定.ini"));
    CHECK(canBeTold("C:/SUITE/髙橋.ini"));
    CHECK(canBeTold("TMP\\x.ini"));
    CHECK(canBeTold("Massage.ini"));
    CHECK_FALSE(canBeTold(deep + "\\x.ini"));
    CHECK_FALSE(canBeTold("\\\\server\\share\\" + std::string(300, 'x') + "\\x.ini"));
    CHECK_FALSE(canBeTold("C:\\𠮷野\\x.ini"));
    CHECK_FALSE(canBeTold("C:\\SUITE\\Äpfel.ini"));
    // It would go out as a sign that only looks like it, and the name would be another.
    CHECK_FALSE(canBeTold("C:\\SUITE\\1\u301C2.ini"));
}

TEST_CASE("a name without a folder never means the current one, however deep that lies")
{
    const DeepFolder deep;
    const CurrentFolder keep(widePath(deep.path()));
    CHECK(canBeTold("inin-nowhere.ini"));
    CHECK_FALSE(canBeTold("𠮷.ini"));
    const auto profile = makeWin32Profile();
    CHECK(profile->WritePrivateProfileString("a", "k", "1", "𠮷.ini") == 0);
    CHECK(profile->GetPrivateProfileInt("a", "k", 7, "𠮷.ini") == 7);
    CHECK(profile->GetPrivateProfileString("a", "k", "d", 256, "𠮷.ini") == "d");
    CHECK(makeWin32Files("C:\\")->directorySearch(deep / "*") == "");
}

TEST_CASE("a profile file is written and read where its path has a character that the code page lacks")
{
    const TempFolder folder, current;
    const CurrentFolder keep(current.folder());
    std::filesystem::create_directory(pathOf(folder / "𠮷野整骨院"));
    const auto profile = makeWin32Profile();
    for (const char *name : {"𠮷野整骨院/印刷設定.ini", "Äpfel.ini", "1\u301C2.ini"}) {
        INFO(name);
        CHECK(profile->WritePrivateProfileString("委任状", "印刷種別", "2", folder / name) == 1);
        CHECK(folder.bytes(name) == "[\x88\xCF\x94\x43\x8F\xF3]\r\n\x88\xF3\x8D\xFC\x8E\xED\x95\xCA=2\r\n");
        CHECK(profile->GetPrivateProfileInt("委任状", "印刷種別", 0, folder / name) == 2);
        CHECK(profile->GetPrivateProfileString("委任状", "印刷種別", "", 256, folder / name) == "2");
    }
    CHECK(folder.entries() == 3);
    CHECK(current.entries() == 0);
}

TEST_CASE("a refused write gives 0 at a path that the calls cannot be told, and writes nothing anywhere")
{
    const DeepFolder deep;
    const TempFolder current;
    const CurrentFolder keep(current.folder());
    const std::string file = deep / "x.ini";
    const auto profile = makeWin32Profile();
    const auto write = [&](const std::string &path) { return profile->WritePrivateProfileString("a", "k", "2", path); };

    CHECK(write(deep.path()) == 0);
    CHECK(write(deep / "missing\\x.ini") == 0);
    CHECK(profile->GetPrivateProfileString("a", "k", "d", 256, deep / "missing\\x.ini") == "d");
    CHECK(write(deep / std::string(300, 'x')) == 0);
    CHECK(profile->WritePrivateProfileString(std::nullopt, "k", "2", file) == 0);
    CHECK(profile->WritePrivateProfileString("a", "k", std::nullopt, file) == 1);
    CHECK(makeWin32Files("C:\\")->directorySearch(deep / "*") == "");

    REQUIRE(write(file) == 1);
    REQUIRE(SetFileAttributesW(widePath(file).c_str(), FILE_ATTRIBUTE_READONLY) != 0);
    CHECK(profile->WritePrivateProfileString("a", "k", "3", file) == 0);
    REQUIRE(SetFileAttributesW(widePath(file).c_str(), FILE_ATTRIBUTE_NORMAL) != 0);
    CHECK(profile->GetPrivateProfileInt("a", "k", 7, file) == 2);
    CHECK(current.entries() == 0);
    makeWin32Files("C:\\")->remove(file);
}

TEST_CASE("a profile file is found whichever separator its path has, and under a Japanese name")
{
    const TempFolder folder;
    const auto profile = makeWin32Profile();
    CHECK(profile->WritePrivateProfileString("委任状", "印刷種別", "1", folder.path() + "\\印刷設定.ini") == 1);
    CHECK(folder.bytes("印刷設定.ini") == "[\x88\xCF\x94\x43\x8F\xF3]\r\n\x88\xF3\x8D\xFC\x8E\xED\x95\xCA=1\r\n");
    CHECK(profile->GetPrivateProfileString("委任状", "印刷種別", "", 256, folder / "印刷設定.ini") == "1");
}

TEST_CASE("a folder that is not there refuses a write and reads the default")
{
    const TempFolder folder;
    const auto profile = makeWin32Profile();
    CHECK(profile->WritePrivateProfileString("a", "k", "1", folder / "missing/x.ini") == 0);
    CHECK(profile->GetPrivateProfileInt("a", "k", 7, folder / "missing/x.ini") == 7);
    CHECK(profile->GetPrivateProfileString("a", "k", "d", 256, folder / "missing/x.ini") == "d");
}

TEST_CASE("a read without a section or key has no number but the default")
{
    const auto profile = makeWin32Profile();
    CHECK(profile->GetPrivateProfileInt(std::nullopt, "k", 7, "C:\\x.ini") == 7);
    CHECK(profile->GetPrivateProfileInt("a", std::nullopt, 7, "C:\\x.ini") == 7);
    CHECK(profile->GetPrivateProfileString("a", "k", "d", 0, "C:\\x.ini") == "");
}
