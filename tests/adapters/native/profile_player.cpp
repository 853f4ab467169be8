#include "adapters/native/profile_player.h"

#include "suite_text/code_page_932.h"
#include "support/file_bytes.h"

#include <algorithm>
#include <fstream>

namespace inin {

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

} // namespace

bool canBeAskedFor(const ProfileCase &one)
{
    return std::ranges::all_of(one.steps, [](const ProfileStep &step) {
        const auto same = [](const auto &text) {
            return !text || encodeCp932(decodeCp932(*text)).size() == text->size();
        };
        return same(step.section) && same(step.key) && same(step.value);
    });
}

std::optional<std::string> bytesAt(const std::filesystem::path &file)
{
    std::ifstream stream(file, std::ios::binary);
    if (!stream) return std::nullopt;
    return restOf(stream);
}

std::string differences(const ProfileCase &one, Profile &profile, const std::string &path,
                        const std::filesystem::path &file)
{
    std::string result;
    for (const ProfileStep &step : one.steps) {
        const std::string got = played(step, profile, path);
        if (got != recordedResult(step)) result += one.id + " " + one.name + ": " + got + "\n";
        if (step.givesFile && bytesAt(file) != step.fileAfter) result += one.id + " " + one.name + ": file\n";
    }
    return result;
}

} // namespace inin
