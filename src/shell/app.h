#pragma once

#include "platform/platform.h"

#include <cstdint>
#include <string>

namespace inin {

/// The process-wide values of the program, owned by app/ and passed on through the constructors.
struct App {
    explicit App(const Platform &outside) : platform(outside), regional(outside.locale.regional()) {}

    Platform platform;
    Regional regional;

    /// The application folder as the operating system reports it, set in the load of frmBack.
    std::string gcsAppPath;
    /// Branch code and sub-code of this installation, from the setting "BASEID".
    std::int16_t iKyotenCd = 0;
    std::int16_t iKyotenEb = 0;
    /// Error text of the last failed connect in iGetRiyoushaRec; a later success keeps it.
    std::string patientConnectError;
    /// Not 0 if staff numbers are unique over all branches; nothing in this program sets it.
    std::int32_t iKyotenIdMode = 0;
    /// "1" if a company's map is saved with the company; nothing in this program sets it.
    std::string cChizuFlg;
    /// Above 0 if the charges of 2019 apply; nothing in this program sets it.
    std::int16_t iTankaKaitei = 0;
    /// Address of the last online help, with its query.
    std::string csHelpUrl;
};

} // namespace inin
