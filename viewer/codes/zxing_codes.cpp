#include "runtime/runtime_error.h"
#include "viewer/codes/qr_codes.h"

#define ZX_USE_UTF8 // texts as std::string
#include <BitMatrix.h>
#include <MultiFormatWriter.h>
#include <ReadBarcode.h>

namespace inin::viewer {

namespace {

/// 30 % of a code may be covered.
constexpr int kStrongestCorrection = 8;

std::vector<std::string> codesIn(const ZXing::ImageView &view, ZXing::Binarizer binarizer)
{
    const auto hints = ZXing::DecodeHints().setFormats(ZXing::BarcodeFormat::QRCode).setBinarizer(binarizer);
    std::vector<std::string> texts;
    for (const ZXing::Result &result : ZXing::ReadBarcodes(view, hints)) texts.push_back(result.text());
    return texts;
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
    // A threshold for the whole page finds codes that a local one loses in stains and shadows.
    return texts.empty() ? codesIn(view, ZXing::Binarizer::GlobalHistogram) : texts;
}

} // namespace inin::viewer
