#pragma once

#include "platform/platform.h"

#include <cstdint>
#include <string>

namespace inin {

/// One profile file of the suite: "adodb.ini", "印刷設定.ini", "帳票Format.ini", ... Wraps the platform's profile calls
/// and turns their failures into a text. Call iInit first.
class clsOplIniFile {
public:
    explicit clsOplIniFile(const Platform &platform) : m_platform(platform) {}

    /// Text of the last failure; never cleared by a later success.
    std::string csErrMsg;

    /// 0 if the file exists, else -1. The name is kept even if the file is missing, so that a write can create it.
    [[nodiscard]] std::int16_t iInit(const std::string &csFileName);
    /// The leading whole number of the value; 0 for a missing key or a non-numeric value, -1 on a trapped error.
    [[nodiscard]] std::int32_t nGetProfileLong(const std::string &csSectionName, const std::string &csKeyName);
    /// The value, padded with NUL characters to 256: cut it with csCutNul before use.
    [[nodiscard]] std::string csGetProfileString(const std::string &csSectionName, const std::string &csKeyName);
    /// The platform's result: non-zero is success, 0 a refusal, -1 a trapped error.
    [[nodiscard]] std::int16_t iWriteProfileString(const std::string &csSectionName, const std::string &csKeyName,
                                                   const std::string &csWriteBuf);

private:
    Platform m_platform;
    std::string m_fileName;
};

} // namespace inin
