#include "viewer/codes/qr_library.h"

namespace inin::viewer {

bool canReadQrCodes()
{
    return false;
}

std::vector<std::string> decodeQr(const GreyPicture & /*picture*/, InkThreshold /*threshold*/)
{
    return {};
}

} // namespace inin::viewer
