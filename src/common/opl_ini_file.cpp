#include "common/opl_ini_file.h"

#include "runtime/runtime_error.h"
#include "runtime/text.h"

namespace inin {

namespace {

/// Size in bytes of the buffer that the platform fills; the value and its NUL must fit.
constexpr std::size_t kBufferSize = 256;

bool fileExists(Files &files, const std::string &path)
try {
    return !files.directorySearch(path).empty();
} catch (const RuntimeError &) {
    // A name that cannot be searched for is a missing file.
    return false;
}

std::string readFailure(const std::string &file, const std::string &section, const std::string &key)
{
    // Deliberate: a single CR, and no break between the other parts; the users know the text in this form.
    return "Iniファイルの読込に失敗しました。\rファイル名：" + file + "セクション：" + section + "  キー    ：" + key;
}

} // namespace

std::int16_t clsOplIniFile::iInit(const std::string &csFileName)
{
    if (csFileName.empty()) {
        csErrMsg = "Iniファイル名を指定してください。";
        return -1;
    }
    m_fileName = csFileName;
    if (!fileExists(m_platform.files, csFileName)) {
        csErrMsg = "指定されたIni（" + csFileName + "）ファイルが見つかりません。";
        return -1;
    }
    return 0;
}

std::int32_t clsOplIniFile::nGetProfileLong(const std::string &csSectionName, const std::string &csKeyName)
try {
    return m_platform.profile.GetPrivateProfileInt(csSectionName, csKeyName, 0, m_fileName);
} catch (const RuntimeError &) {
    csErrMsg = readFailure(m_fileName, csSectionName, csKeyName);
    return -1;
}

std::string clsOplIniFile::csGetProfileString(const std::string &csSectionName, const std::string &csKeyName)
try {
    std::string buffer =
        m_platform.profile.GetPrivateProfileString(csSectionName, csKeyName, "", kBufferSize, m_fileName);
    const std::size_t used = m_platform.locale.toCodePage(buffer).size();
    if (used < kBufferSize) buffer.append(kBufferSize - used, '\0');
    // The NULs after the value protect its trailing blanks: callers cut at the first NUL and trim once more.
    return rtrim(buffer);
} catch (const RuntimeError &) {
    csErrMsg = readFailure(m_fileName, csSectionName, csKeyName);
    return {};
}

std::int16_t clsOplIniFile::iWriteProfileString(const std::string &csSectionName, const std::string &csKeyName,
                                                const std::string &csWriteBuf)
try {
    const std::int32_t written =
        m_platform.profile.WritePrivateProfileString(csSectionName, csKeyName, csWriteBuf, m_fileName);
    return written != 0 ? std::int16_t{1} : std::int16_t{0};
} catch (const RuntimeError &) {
    csErrMsg = "Iniファイルの書込に失敗しました。";
    return -1;
}

} // namespace inin
