#include "viewer/codes/qr_codes.h"

namespace inin::viewer {

bool hasQrCodes()
{
    return false;
}

QrModules writeQr(std::string_view /*text*/)
{
    return {};
}

std::vector<std::string> readQrCodes(const GreyPicture & /*picture*/)
{
    return {};
}

} // namespace inin::viewer
