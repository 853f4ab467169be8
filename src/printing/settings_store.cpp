#include "common/helpers.h"
#include "common/opl_ini_file.h"
#include "printing/print_form.h"
#include "runtime/conversion.h"
#include "runtime/text.h"
#include "shell/settings.h"

namespace inin {

namespace {

constexpr const char *kStoreFile = "印刷設定.ini";
constexpr const char *kSection = "委任状";
constexpr const char *kObjectKey = "対象データ";
constexpr const char *kTrustKey = "受任者";
constexpr const char *kTgtDateKey = "対象期間";
constexpr const char *kDspPeriodKey = "表示期間";
constexpr const char *kReportKey = "帳票種類";
constexpr const char *kSignatureKey = "署名日";

constexpr std::int16_t kDefaultKind = 1;

std::string readText(clsOplIniFile &file, const char *key)
{
    return rtrim(csCutNul(file.csGetProfileString(kSection, key)));
}

/// A number beyond 16 bits is an overflow; a non-numeric text gives the default.
std::int16_t readKind(clsOplIniFile &file, const char *key)
{
    const Variant text = readText(file, key);
    return isNumeric(text) ? toInteger(text) : kDefaultKind;
}

/// Assigns the options in the order of their indices; the one that becomes selected fires its click. Returns its index.
std::int16_t select(OptionGroup &group, std::int16_t selected)
{
    for (std::int16_t Index = 0; Index < group.count(); ++Index) group(Index).Value = Index == selected;
    return selected;
}

/// The option of a kind is one less; a kind beyond the group selects its last option.
std::int16_t selectKind(OptionGroup &group, std::int16_t kind)
{
    const auto last = static_cast<std::int16_t>(group.count() - 1);
    return select(group, kind >= 1 && kind <= last ? static_cast<std::int16_t>(kind - 1) : last);
}

/// Deliberate: an unknown report kind is the Aichi format, a missing or non-numeric one the standard.
std::int16_t optionOfReport(std::int32_t value)
{
    return value == 0 ? std::int16_t{0} : value == 2 ? std::int16_t{2} : std::int16_t{1};
}

bool isZero(const std::string &text)
{
    return isNumeric(text) && toDouble(text) == 0;
}

void plainErrorBox(App &app, const std::string &text)
{
    app.platform.boxes.show("Error:" + text, Icon::none);
}

} // namespace

void frmPrintInin::nNullToLong(const Variant &vValue, std::int32_t &nResult) const
{
    nResult = inin::nNullToLong(vValue);
}

/// The order matters, because the option that becomes selected fires its click: the report is read after the kinds, so
/// that its enabling overrides theirs. The enabling is repeated here, because an option that was already selected fires
/// no click.
std::int32_t frmPrintInin::iLoadPrintSetting()
try {
    clsOplIniFile file(m_app.platform);
    if (file.iInit(csDataDir(m_app) + kStoreFile) != iGood) return 0;
    iObjectKind = readKind(file, kObjectKey);
    selectKind(optObject, iObjectKind);
    iTrustKind = readKind(file, kTrustKey);
    selectKind(optTrust, iTrustKind);
    iTgtDateKind = readKind(file, kTgtDateKey);
    const std::int16_t target = selectKind(optTgtDate, iTgtDateKind);
    frmObject.Enabled = target != 2;
    imD_Out.Enabled = target == 0;
    imD_LastDay.Enabled = target == 1;
    iDspPeriodKind = readKind(file, kDspPeriodKey);
    const bool isEnteredPeriod = selectKind(optDspPeriod, iDspPeriodKind) == 1;
    imSetDateFrom.Enabled = isEnteredPeriod;
    imSetDateTo.Enabled = isEnteredPeriod;
    std::int32_t report = 0;
    nNullToLong(readText(file, kReportKey), report);
    select(optPrint, optionOfReport(report));
    const bool isAutomatic = isZero(readText(file, kSignatureKey));
    select(optSyomei, isAutomatic ? std::int16_t{0} : std::int16_t{1});
    imSyomei.Enabled = !isAutomatic;
    return 1;
} catch (const RuntimeError &error) {
    plainErrorBox(m_app, error.description());
    return 0;
}

void frmPrintInin::iSavePrintSetting()
try {
    clsOplIniFile file(m_app.platform);
    // Without the file the name is kept all the same, and the first write creates the file.
    static_cast<void>(file.iInit(csDataDir(m_app) + kStoreFile));
    const auto isWritten = [&file](const char *key, int value) {
        // Deliberate: a refused write gives 0 and is not reported.
        return file.iWriteProfileString(kSection, key, std::to_string(value)) != iBad;
    };
    if (!isWritten(kTgtDateKey, iTgtDateKind) || !isWritten(kObjectKey, iObjectKind) ||
        !isWritten(kDspPeriodKey, iDspPeriodKind) || !isWritten(kTrustKey, iTrustKind) ||
        !isWritten(kReportKey, markedPrintKind()) || !isWritten(kSignatureKey, markedSyomeiKind()))
        plainErrorBox(m_app, file.csErrMsg);
} catch (const RuntimeError &error) {
    plainErrorBox(m_app, error.description());
}

} // namespace inin
