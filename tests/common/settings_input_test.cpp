#include "common/field_input.h"
#include "common/text_file.h"
#include "platform/settings_limit.h"
#include "runtime/runtime_error.h"
#include "support/fake_platform.h"

#include <doctest/doctest.h>

using namespace inin;

namespace {

const std::string kSettingsPath = "C:\\SUITE\\Massage.ini";

/// The description of the error that reading a file of that size to its end raises; empty without one.
std::string failureAt(std::size_t size)
{
    FakeWorld world;
    world.files.put(kSettingsPath, std::string(size, 'x'));
    SettingsInput file(world.files, kSettingsPath);
    try {
        while (!file.read().empty()) continue;
    } catch (const RuntimeError &error) {
        CHECK(error.number() == 7);
        return error.description();
    }
    return {};
}

} // namespace

TEST_CASE("a settings file of 16 MB is read, a larger one is refused with a sentence")
{
    CHECK(failureAt(kMaxSettingsBytes) == "");
    CHECK(failureAt(kMaxSettingsBytes + 1) == "設定ファイル（C:\\SUITE\\Massage.ini）が 16 MB を超えています。");
}

TEST_CASE("lines and fields are read within the limit of settings files")
{
    FakeWorld world;
    world.files.put(kSettingsPath, std::string(kMaxSettingsBytes + 1, 'x'));
    std::string line;
    CHECK_THROWS_AS((void)TextInput(world.platform, kSettingsPath).readLine(line), RuntimeError);
    CHECK_THROWS_AS((void)FieldInput(world.platform, kSettingsPath).next(), RuntimeError);
}
