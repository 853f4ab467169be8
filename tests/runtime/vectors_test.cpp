#include "runtime/conversion.h"
#include "runtime/format.h"
#include "support/errors.h"
#include "support/regional.h"

#include <doctest/doctest.h>
#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <cmath>
#include <concepts>
#include <fstream>
#include <vector>

// Recorded results of the platform's own conversions, one JSON object per line. All of them apply here without
// exception; the only deviating rule, a visit time that is NULL, is in the reader of that column.

namespace inin {
namespace {

using Json = nlohmann::json;

std::vector<Json> casesOf(std::string_view kind)
{
    std::ifstream file(ININ_TEST_DATA "/conv.jsonl");
    std::vector<Json> cases;
    for (std::string line; std::getline(file, line);)
        if (Json entry = Json::parse(line); entry.at("kind") == kind) cases.push_back(std::move(entry));
    return cases;
}

std::int32_t expectedError(const Json &result)
{
    const auto code = result.at("hr").get<std::string>();
    if (code == "S_OK") return 0;
    if (code == "DISP_E_TYPEMISMATCH") return 13;
    if (code == "DISP_E_OVERFLOW") return 6;
    if (code == "E_INVALIDARG") return 5;
    return -1;
}

/// The platform's own decimal conversion is off by up to two units in the last place.
bool isRecorded(std::floating_point auto value, const Json &recorded)
{
    auto low = recorded.get<double>();
    double high = low;
    for (int unit = 0; unit < 2; ++unit) {
        low = std::nextafter(low, -HUGE_VAL);
        high = std::nextafter(high, HUGE_VAL);
    }
    return value >= low && value <= high;
}

bool isRecorded(const Json &value, const Json &recorded)
{
    return value == recorded;
}

/// The result is the recorded value or the recorded error.
template <class Action> void checkResult(const Json &result, Action &&action)
{
    const std::int32_t expected = expectedError(result);
    CHECK(errorOf(action) == expected);
    if (expected == 0 && errorOf(action) == 0) CHECK(isRecorded(action(), result.at("v")));
}

std::string stamp(Date date)
{
    const DateParts p = partsOf(date);
    return fmt::format("{:04}-{:02}-{:02} {:02}:{:02}:{:02}", p.year, p.month, p.day, p.hour, p.minute, p.second);
}

/// The recorded decimal as a double, including subnormal ones.
double doubleOf(const Json &text)
{
    return Json::parse(text.get<std::string>()).get<double>();
}

Variant valueOf(const Json &entry)
{
    const auto type = entry.at("type").get<std::string>();
    if (type == "null") return Null{};
    const double number = doubleOf(entry.at("in"));
    if (type == "i4") return static_cast<std::int32_t>(number);
    REQUIRE((type == "r8" || type == "date"));
    return type == "date" ? Variant(Date(number)) : Variant(number);
}

TEST_CASE("every recorded text converts to the recorded numbers or errors")
{
    const std::vector<Json> cases = casesOf("numtext");
    CHECK(cases.size() == 84);
    for (const Json &entry : cases) {
        const Variant text(entry.at("text").get<std::string>());
        CAPTURE(entry.dump());
        checkResult(entry.at("i2"), [&] { return toInteger(text); });
        checkResult(entry.at("i4"), [&] { return toLong(text); });
        checkResult(entry.at("r8"), [&] { return toDouble(text); });
    }
}

TEST_CASE("every recorded double converts to the recorded whole numbers and text")
{
    const std::vector<Json> cases = casesOf("r8");
    CHECK(cases.size() == 39);
    for (const Json &entry : cases) {
        const Variant number(doubleOf(entry.at("in")));
        CAPTURE(entry.dump());
        checkResult(entry.at("i2"), [&] { return toInteger(number); });
        checkResult(entry.at("i4"), [&] { return toLong(number); });
        checkResult(entry.at("bstr"), [&] { return toText(number, kRegional); });
    }
}

TEST_CASE("every recorded date text converts to the recorded date or error")
{
    const std::vector<Json> cases = casesOf("datetext");
    CHECK(cases.size() == 53);
    for (const Json &entry : cases) {
        const Variant text(entry.at("text").get<std::string>());
        const std::int32_t expected = expectedError(entry);
        CAPTURE(entry.dump());
        CHECK(errorOf([&] { return toDate(text, kRegional); }) == expected);
        if (expected != 0) continue;
        const Date date = toDate(text, kRegional);
        CHECK(stamp(date) == entry.at("is").get<std::string>());
        // The recording computed the time in another order of divisions, so the last bits differ; compare to a
        // hundredth of a second.
        CHECK(std::abs(date.days() - entry.at("v").get<double>()) < 1e-7);
    }
}

TEST_CASE("every recorded date has the recorded parts and default text")
{
    const std::vector<Json> cases = casesOf("dateout");
    CHECK(cases.size() == 28);
    for (const Json &entry : cases) {
        const Date date(doubleOf(entry.at("date")));
        CAPTURE(entry.dump());
        checkResult(entry.at("text"), [&] { return dateText(date, kRegional); });
        if (entry.at("is").is_null())
            CHECK(errorOf([&] { return partsOf(date); }) == 5);
        else
            CHECK(stamp(date) == entry.at("is").get<std::string>());
    }
}

TEST_CASE("every recorded pattern writes the recorded text")
{
    const std::vector<Json> cases = casesOf("format");
    CHECK(cases.size() == 80);
    for (const Json &entry : cases) {
        CAPTURE(entry.dump());
        const Variant written = Format(valueOf(entry), entry.at("format").get<std::string>(), kRegional);
        const Json &expected = entry.at("result").at("v");
        if (expected.is_null())
            CHECK(written.isNull());
        else
            CHECK(written == Variant(expected.get<std::string>()));
    }
}

} // namespace
} // namespace inin
