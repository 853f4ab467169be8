#include "runtime/runtime_error.h"
#include "viewer/codes/qr_codes.h"

#define ZX_USE_UTF8 // texts as std::string
#include <BitMatrix.h>
#include <MultiFormatWriter.h>
#include <ReadBarcode.h>

#include <algorithm>
#include <array>
#include <iterator>

namespace inin::viewer {

namespace {

/// 30 % of a code may be covered.
constexpr int kStrongestCorrection = 8;
/// Ink is darker than this share of the paper's brightness. Coffee is lighter than the first.
constexpr double kInkShares[] = {0.34, 0.5, 0.67};

std::vector<std::string> codesIn(const ZXing::ImageView &view, ZXing::Binarizer binarizer)
{
    const auto hints = ZXing::DecodeHints().setFormats(ZXing::BarcodeFormat::QRCode).setBinarizer(binarizer);
    std::vector<std::string> texts;
    for (const ZXing::Result &result : ZXing::ReadBarcodes(view, hints)) texts.push_back(result.text());
    return texts;
}

/// The brightness of the paper, which covers most of a page.
int medianOf(const GreyPicture &picture)
{
    std::array<std::size_t, 256> counts{};
    for (const std::uint8_t pixel : picture.pixels) ++counts[pixel];
    std::size_t seen = 0, value = 0;
    while (value < counts.size() && seen * 2 < picture.pixels.size()) seen += counts[value++];
    return static_cast<int>(value);
}

/// Pixels darker than `limit` become black and the others white.
std::vector<std::uint8_t> thresholded(const GreyPicture &picture, int limit)
{
    std::vector<std::uint8_t> pixels(picture.pixels.size());
    std::ranges::transform(picture.pixels, pixels.begin(),
                           [limit](std::uint8_t pixel) { return static_cast<std::uint8_t>(pixel < limit ? 0 : 255); });
    return pixels;
}

} // namespace

bool hasQrCodes()
{
    return true;
}

QrModules writeQr(std::string_view text)
{
    const ZXing::BitMatrix matrix = ZXing::MultiFormatWriter(ZXing::BarcodeFormat::QRCode)
                                        .setEccLevel(kStrongestCorrection)
                                        .setMargin(0)
                                        .encode(std::string(text), 0, 0);
    QrModules modules{matrix.width(), {}};
    modules.dark.reserve(static_cast<std::size_t>(matrix.width() * matrix.height()));
    for (int y = 0; y < matrix.height(); ++y)
        for (int x = 0; x < matrix.width(); ++x) modules.dark.push_back(matrix.get(x, y));
    return modules;
}

std::vector<std::string> readQrCodes(const GreyPicture &picture)
{
    const auto needed = static_cast<std::size_t>(picture.bytesPerRow) * static_cast<std::size_t>(picture.height);
    if (picture.width < 1 || picture.height < 1 || picture.bytesPerRow < picture.width ||
        picture.pixels.size() < needed)
        throw RuntimeError(error_number::invalidCall);
    const ZXing::ImageView view(picture.pixels.data(), picture.width, picture.height, ZXing::ImageFormat::Lum,
                                picture.bytesPerRow);
    std::vector<std::string> texts = codesIn(view, ZXing::Binarizer::LocalAverage);
    // Noise and stains confuse the local threshold: try one for the whole page, which leaves only the ink.
    const int paper = medianOf(picture);
    for (std::size_t i = 0; texts.empty() && i < std::size(kInkShares); ++i) {
        const std::vector<std::uint8_t> ink = thresholded(picture, static_cast<int>(paper * kInkShares[i]));
        texts = codesIn({ink.data(), picture.width, picture.height, ZXing::ImageFormat::Lum, picture.bytesPerRow},
                        ZXing::Binarizer::FixedThreshold);
    }
    return texts;
}

} // namespace inin::viewer
