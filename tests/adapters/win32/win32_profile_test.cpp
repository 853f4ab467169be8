#include "profile_vectors.h"

#include "adapters/posix/code_page_932.h"
#include "adapters/win32/win32_platform.h"
#include "adapters/win32/windows_names.h"
#include "support/temp_folder.h"

#include <algorithm>
#include <map>

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

class HeldOpen {
public:
    explicit HeldOpen(const std::string &path)
        : m_handle(CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr))
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

} // namespace

TEST_CASE("every recorded profile call gives what the platform gave")
{
    std::size_t count = 0;
    const auto profile = makeWin32Profile();
    for (const ProfileCase &one : recordedProfileCases()) {
        if (one.group == "readonly" || one.group == "path" || one.id == "p0370" || !canBeAskedFor(one)) continue;
        ++count;
        INFO(one.id, " ", one.name);
        const TempFolder folder;
        if (one.file) folder.put("x.ini", *one.file);
        std::optional<HeldOpen> other;
        if (one.id == kHeldOpen) other.emplace(folder / "x.ini");
        for (const ProfileStep &step : one.steps) {
            CHECK(played(step, *profile, folder / "x.ini") == recorded(step));
            if (step.tellsFile)
                CHECK((folder.has("x.ini") ? std::optional(folder.bytes("x.ini")) : std::nullopt) == step.fileAfter);
        }
    }
    CHECK(count >= 190);
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
