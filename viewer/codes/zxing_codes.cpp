#include "viewer/codes/qr_library.h"

#define ZX_USE_UTF8 // texts as std::string
#include <BitMatrix.h>
#include <MultiFormatWriter.h>
#include <ReadBarcode.h>

namespace inin::viewer {

namespace {

#if __has_include(<ReaderOptions.h>)
using ReaderOptions = ZXing::ReaderOptions;
#else // before version 2.2
using ReaderOptions = ZXing::DecodeHints;
#endif

} // namespace

bool canReadQrCodes()
{
    return true;
}

QrModules encodeQr(const std::string &digits)
{
    constexpr int kStrongestCorrection = 8; // 30 % of the code may be covered
    const ZXing::BitMatrix matrix = ZXing::MultiFormatWriter(ZXing::BarcodeFormat::QRCode)
                                        .setEccLevel(kStrongestCorrection)
                                        .setMargin(0)
                                        .encode(digits, 0, 0);
    QrModules modules{matrix.width(), {}};
    for (int y = 0; y < matrix.height(); ++y)
        for (int x = 0; x < matrix.width(); ++x) modules.dark.push_back(matrix.get(x, y));
    return modules;
}

std::vector<std::string> decodeQr(const GreyPicture &picture, InkThreshold threshold)
{
    const ZXing::ImageView view(picture.pixels.data(), picture.width, picture.height, ZXing::ImageFormat::Lum,
                                picture.bytesPerRow);
    const auto binarizer =
        threshold == InkThreshold::local ? ZXing::Binarizer::LocalAverage : ZXing::Binarizer::FixedThreshold;
    const auto options = ReaderOptions().setFormats(ZXing::BarcodeFormat::QRCode).setBinarizer(binarizer);
    std::vector<std::string> texts;
    for (const ZXing::Result &result : ZXing::ReadBarcodes(view, options)) texts.push_back(result.text());
    return texts;
}

} // namespace inin::viewer
