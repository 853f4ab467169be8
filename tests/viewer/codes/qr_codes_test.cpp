#include "runtime/runtime_error.h"
#include "viewer/codes/qr_codes.h"

#include <doctest/doctest.h>

#include <algorithm>

using namespace inin;
using namespace inin::viewer;

namespace {

constexpr int kDots = 4; ///< per module
constexpr const char *kText = "123456000000142";

/// A white sheet with a code at its lower right.
struct Sheet {
    explicit Sheet(const QrModules &modules) : first((side - (modules.size + kQuietZone) * kDots))
    {
        for (int y = 0; y < modules.size * kDots; ++y)
            for (int x = 0; x < modules.size * kDots; ++x)
                if (modules.isDark(x / kDots, y / kDots)) at(first + x, first + y) = 0;
    }
    std::uint8_t &at(int x, int y) { return pixels[std::size_t(y) * side + std::size_t(x)]; }
    [[nodiscard]] std::vector<std::string> codes() const { return readQrCodes({pixels, side, side, side}); }

    static constexpr int side = 400;
    std::vector<std::uint8_t> pixels = std::vector<std::uint8_t>(std::size_t{side} * side, 255);
    int first;
};

const std::vector<std::string> kOne = {kText};

} // namespace

TEST_CASE("a written code is read back, upright and upside down")
{
    const QrModules modules = writeQr(kText);
    Sheet sheet(modules);
    CHECK(sheet.codes() == kOne);
    std::ranges::reverse(sheet.pixels);
    CHECK(sheet.codes() == kOne);
}

TEST_CASE("the code of a letter needs 21 modules per side")
{
    CHECK(writeQr(kText).size == 21);
}

TEST_CASE("a code with a spot on it is read, and one that is half covered is not")
{
    const QrModules modules = writeQr(kText);
    Sheet spotted(modules), covered(modules);
    for (int y = 10 * kDots; y < 15 * kDots; ++y)
        for (int x = 14 * kDots; x < 19 * kDots; ++x) spotted.at(spotted.first + x, spotted.first + y) = 0;
    CHECK(spotted.codes() == kOne);
    for (int y = 9 * kDots; y < 20 * kDots; ++y)
        for (int x = 9 * kDots; x < 20 * kDots; ++x) covered.at(covered.first + x, covered.first + y) = 0;
    CHECK(covered.codes().empty());
}

TEST_CASE("a sheet without a code has no codes")
{
    CHECK(Sheet(QrModules{}).codes().empty());
}

TEST_CASE("a picture with fewer pixels than its size is refused")
{
    const std::vector<std::uint8_t> pixels(99);
    CHECK_THROWS_AS((void)readQrCodes({pixels, 10, 10, 10}), RuntimeError);
    CHECK_THROWS_AS((void)readQrCodes({pixels, 10, 9, 9}), RuntimeError);
}

TEST_CASE("a code holds at most seventeen digits and nothing but digits")
{
    CHECK(writeQr("12345678901234567").size == 21);
    CHECK_THROWS_AS((void)writeQr("123456789012345678"), RuntimeError);
    CHECK_THROWS_AS((void)writeQr("12345-6"), RuntimeError);
    CHECK_THROWS_AS((void)writeQr("１２３"), RuntimeError);
}
