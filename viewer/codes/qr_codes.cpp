#include "runtime/runtime_error.h"
#include "viewer/codes/qr_library.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace inin::viewer {

namespace {

/// Ink is darker than this share of the paper's brightness. Coffee is lighter than the first.
constexpr double kInkShares[] = {0.34, 0.5, 0.67};

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

QrModules writeQr(std::string_view digits)
{
    if (digits.size() > kMostQrDigits || !std::ranges::all_of(digits, [](char c) { return c >= '0' && c <= '9'; }))
        throw RuntimeError(error_number::invalidCall);
    return encodeQr(std::string(digits));
}

std::vector<std::string> readQrCodes(const GreyPicture &picture)
{
    const auto needed = static_cast<std::size_t>(picture.bytesPerRow) * static_cast<std::size_t>(picture.height);
    if (picture.width < 1 || picture.height < 1 || picture.bytesPerRow < picture.width ||
        picture.pixels.size() < needed)
        throw RuntimeError(error_number::invalidCall);
    if (!canReadQrCodes()) return {};
    std::vector<std::string> texts = decodeQr(picture, InkThreshold::local);
    if (!texts.empty()) return texts;
    // Noise and stains confuse the local threshold: try one for the whole page, which leaves only the ink.
    const int paper = medianOf(picture);
    for (std::size_t i = 0; texts.empty() && i < std::size(kInkShares); ++i) {
        const std::vector<std::uint8_t> ink = thresholded(picture, static_cast<int>(paper * kInkShares[i]));
        texts = decodeQr({ink, picture.width, picture.height, picture.bytesPerRow}, InkThreshold::blackWhite);
    }
    return texts;
}

} // namespace inin::viewer
