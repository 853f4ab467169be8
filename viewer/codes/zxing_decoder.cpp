#include "viewer/codes/qr_decoder.h"

#define ZX_USE_UTF8 // texts as std::string
#include <ReadBarcode.h>

namespace inin::viewer {

bool canReadQrCodes()
{
    return true;
}

std::vector<std::string> decodeQr(const GreyPicture &picture, InkThreshold threshold)
{
    const ZXing::ImageView view(picture.pixels.data(), picture.width, picture.height, ZXing::ImageFormat::Lum,
                                picture.bytesPerRow);
    const auto binarizer =
        threshold == InkThreshold::local ? ZXing::Binarizer::LocalAverage : ZXing::Binarizer::FixedThreshold;
    const auto hints = ZXing::DecodeHints().setFormats(ZXing::BarcodeFormat::QRCode).setBinarizer(binarizer);
    std::vector<std::string> texts;
    for (const ZXing::Result &result : ZXing::ReadBarcodes(view, hints)) texts.push_back(result.text());
    return texts;
}

} // namespace inin::viewer
