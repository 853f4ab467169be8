#include "viewer/codes/qr_codes.h"

#include "support/sample_size.h"

#include <doctest/doctest.h>

#define ZX_USE_UTF8
#include <BitMatrix.h>
#include <MultiFormatWriter.h>

#include <random>

using namespace inin;
using namespace inin::viewer;

namespace {

/// The code as another library writes it.
QrModules otherCode(const std::string &digits)
{
    constexpr int kStrongestCorrection = 8;
    const ZXing::BitMatrix matrix = ZXing::MultiFormatWriter(ZXing::BarcodeFormat::QRCode)
                                        .setEccLevel(kStrongestCorrection)
                                        .setMargin(0)
                                        .encode(digits, 0, 0);
    QrModules modules{matrix.width(), {}};
    for (int y = 0; y < matrix.height(); ++y)
        for (int x = 0; x < matrix.width(); ++x) modules.dark.push_back(matrix.get(x, y));
    return modules;
}

} // namespace

TEST_CASE("codes of one to seventeen digits are the same as those of another library, module by module")
{
    std::mt19937 random(20261122);
    for (std::size_t length = 1; length <= kMostQrDigits; ++length) {
        for (int i = 0; i < sampleSize(200); ++i) {
            std::string digits;
            while (digits.size() < length) digits += static_cast<char>('0' + random() % 10);
            CAPTURE(digits);
            const QrModules ours = writeQr(digits), others = otherCode(digits);
            REQUIRE(ours.size == others.size);
            CHECK(ours.dark == others.dark);
        }
    }
}
