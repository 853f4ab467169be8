#include "adapters/native/native_platform.h"
#include "adapters/native/profile_player.h"
#include "adapters/win32/win32_profile.h"
#include "deep_folder.h"

#include <filesystem>
#include <fstream>

#include <doctest/doctest.h>

using namespace inin;
using namespace inin::win32;

namespace {

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

/// Runs a case on the file at `path` and deletes it; returns the differences, empty if there are none.
std::string playedAt(const std::string &path, const ProfileCase &one, Profile &profile)
{
    const std::filesystem::path file(widePath(path));
    if (one.file) std::ofstream(file, std::ios::binary) << *one.file;
    std::optional<HeldOpen> other;
    if (one.id == kHeldOpenCase) other.emplace(path);
    std::string result = differences(one, profile, path, file);
    other.reset();
    DeleteFileW(file.c_str());
    return result;
}

bool canBePlayed(const ProfileCase &one)
{
    return (isAboutTheBytes(one) || one.id == kHeldOpenCase) && canBeAskedFor(one);
}

} // namespace

TEST_CASE("the calls repair a broken double byte of another line, and refuse a file that another program has open")
{
    std::size_t count = 0;
    for (const ProfileCase &one : recordedProfileCases()) {
        if (one.id != kMendedCase && one.id != kHeldOpenCase) continue;
        ++count;
        const TempFolder folder;
        CHECK(playedAt(folder / "x.ini", one, *makeSystemProfile()) == "");
    }
    CHECK(count == 2);
}

TEST_CASE("every recorded profile call has the platform's result at a path that the ANSI calls cannot open")
{
    std::size_t count = 0;
    const auto profile = makeSystemProfile();
    const DeepFolder deep;
    const TempFolder current;
    const CurrentFolder keep(current.folder());
    for (const ProfileCase &one : recordedProfileCases()) {
        if (!canBePlayed(one) || one.id == kMendedCase) continue;
        ++count;
        CHECK(playedAt(deep / "印刷設定.ini", one, *profile) == "");
    }
    CHECK(count >= 189);
    CHECK(current.entries() == 0);
}

TEST_CASE("the ANSI calls can open a path of the classic length with characters of the code page")
{
    const std::string deep = "C:\\" + std::string(300, 'x');
    CHECK(hasAnsiPath("C:\\SUITE\\印刷設定.ini"));
    CHECK(hasAnsiPath("C:/SUITE/髙橋.ini"));
    CHECK(hasAnsiPath("TMP\\x.ini"));
    CHECK(hasAnsiPath("Massage.ini"));
    CHECK_FALSE(hasAnsiPath(deep + "\\x.ini"));
    CHECK_FALSE(hasAnsiPath("\\\\server\\share\\" + std::string(300, 'x') + "\\x.ini"));
    CHECK_FALSE(hasAnsiPath("C:\\𠮷野\\x.ini"));
    CHECK_FALSE(hasAnsiPath("C:\\SUITE\\Äpfel.ini"));
    // It would become a similar character, and so another name.
    CHECK_FALSE(hasAnsiPath("C:\\SUITE\\1\u301C2.ini"));
}

TEST_CASE("a name without a folder never means the current one, not even a deep one")
{
    const DeepFolder deep;
    const CurrentFolder keep(widePath(deep.path()));
    CHECK(hasAnsiPath("inin-nowhere.ini"));
    CHECK_FALSE(hasAnsiPath("𠮷.ini"));
    const auto profile = makeSystemProfile();
    CHECK(profile->WritePrivateProfileString("a", "k", "1", "𠮷.ini") == 0);
    CHECK(profile->GetPrivateProfileInt("a", "k", 7, "𠮷.ini") == 7);
    CHECK(profile->GetPrivateProfileString("a", "k", "d", 256, "𠮷.ini") == "d");
    CHECK(makeSystemFiles("C:\\")->directorySearch(deep / "*") == "");
}

TEST_CASE("a profile file is written and read at a path with a character that the code page lacks")
{
    const TempFolder folder, current;
    const CurrentFolder keep(current.folder());
    std::filesystem::create_directory(pathOf(folder / "𠮷野整骨院"));
    const auto profile = makeSystemProfile();
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

TEST_CASE("a refused write returns 0 at a path that the ANSI calls cannot open, and writes nothing anywhere")
{
    const DeepFolder deep;
    const TempFolder current;
    const CurrentFolder keep(current.folder());
    const std::string file = deep / "x.ini";
    const auto profile = makeSystemProfile();
    const auto write = [&](const std::string &path) { return profile->WritePrivateProfileString("a", "k", "2", path); };

    CHECK(write(deep.path()) == 0);
    CHECK(write(deep / "missing\\x.ini") == 0);
    CHECK(profile->GetPrivateProfileString("a", "k", "d", 256, deep / "missing\\x.ini") == "d");
    CHECK(write(deep / std::string(300, 'x')) == 0);
    CHECK(profile->WritePrivateProfileString(std::nullopt, "k", "2", file) == 0);
    CHECK(profile->WritePrivateProfileString("a", "k", std::nullopt, file) == 1);
    CHECK(makeSystemFiles("C:\\")->directorySearch(deep / "*") == "");

    REQUIRE(write(file) == 1);
    REQUIRE(SetFileAttributesW(widePath(file).c_str(), FILE_ATTRIBUTE_READONLY) != 0);
    CHECK(profile->WritePrivateProfileString("a", "k", "3", file) == 0);
    REQUIRE(SetFileAttributesW(widePath(file).c_str(), FILE_ATTRIBUTE_NORMAL) != 0);
    CHECK(profile->GetPrivateProfileInt("a", "k", 7, file) == 2);
    CHECK(current.entries() == 0);
    makeSystemFiles("C:\\")->remove(file);
}
