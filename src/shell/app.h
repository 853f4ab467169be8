#pragma once

#include "platform/platform.h"

#include <cstdint>
#include <string>

namespace inin {

/// The process-wide values of the program, owned by app/ and handed down through the constructors.
struct App {
    explicit App(const Platform &outside) : platform(outside), regional(outside.locale.regional()) {}

    Platform platform;
    Regional regional;

    /// The application folder as the operating system reports it, set in the load of frmBack.
    std::string gcsAppPath;
    /// Branch code and sub-code of this installation, from the setting "BASEID".
    std::int16_t iKyotenCd = 0;
    std::int16_t iKyotenEb = 0;
    /// Words of the last failed connect of a patient's read (iGetRiyoushaRec); a later success leaves them.
    std::string patientConnectError;
    /// Other than 0 where staff numbers are unique over all branches; nothing in this program sets it.
    std::int32_t iKyotenIdMode = 0;
    /// "1" where a company's map goes to the database with the company; nothing in this program sets it.
    std::string cChizuFlg;
    /// Above 0 where the charges of 2019 are in force; nothing in this program sets it.
    std::int16_t iTankaKaitei = 0;
    /// Address of the last online help, with its query.
    std::string csHelpUrl;
};

} // namespace inin
