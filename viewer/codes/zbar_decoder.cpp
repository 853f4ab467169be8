#include "viewer/codes/qr_library.h"

#include <zbar.h>

namespace inin::viewer {

namespace {

/// The library expects rows without padding.
std::vector<std::uint8_t> packedRows(const GreyPicture &picture)
{
    const auto width = static_cast<std::size_t>(picture.width), stride = static_cast<std::size_t>(picture.bytesPerRow);
    std::vector<std::uint8_t> packed;
    packed.reserve(width * static_cast<std::size_t>(picture.height));
    for (std::size_t begin = 0; packed.size() < packed.capacity(); begin += stride) {
        const auto row = picture.pixels.subspan(begin, width);
        packed.insert(packed.end(), row.begin(), row.end());
    }
    return packed;
}

} // namespace

bool canReadQrCodes()
{
    return true;
}

std::vector<std::string> decodeQr(const GreyPicture &picture, InkThreshold /*the library always has a local one*/)
{
    const std::vector<std::uint8_t> pixels = packedRows(picture);
    zbar::Image image(static_cast<unsigned>(picture.width), static_cast<unsigned>(picture.height), "Y800",
                      pixels.data(), static_cast<unsigned long>(pixels.size()));
    zbar::ImageScanner scanner;
    scanner.set_config(zbar::ZBAR_NONE, zbar::ZBAR_CFG_ENABLE, 0);
    scanner.set_config(zbar::ZBAR_QRCODE, zbar::ZBAR_CFG_ENABLE, 1);
    scanner.scan(image);
    std::vector<std::string> texts;
    for (zbar::SymbolIterator symbol = image.symbol_begin(); symbol != image.symbol_end(); ++symbol)
        texts.push_back(symbol->get_data());
    return texts;
}

} // namespace inin::viewer
