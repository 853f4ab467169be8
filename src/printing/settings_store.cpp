#include "common/helpers.h"
#include "common/opl_ini_file.h"
#include "printing/control_pick.h"
#include "printing/print_form.h"
#include "runtime/conversion.h"
#include "runtime/text.h"
#include "shell/settings.h"

#include <algorithm>
#include <array>

namespace inin {

namespace {

using Screen = PrintControls;

constexpr const char *kStoreFile = "印刷設定.ini";
constexpr const char *kSection = "委任状";

/// A kind as stored: the option selected is one less, and a value beyond the group selects its last option.
struct StoredKind {
    const char *key;
    std::int16_t frmPrintInin::*kind;
    OptionGroup Screen::*group;
};

constexpr StoredKind kObjectKind = {"対象データ", &frmPrintInin::iObjectKind, &Screen::optObject};
constexpr StoredKind kTrustKind = {"受任者", &frmPrintInin::iTrustKind, &Screen::optTrust};
constexpr StoredKind kTgtDateKind = {"対象期間", &frmPrintInin::iTgtDateKind, &Screen::optTgtDate};
constexpr StoredKind kDspPeriodKind = {"表示期間", &frmPrintInin::iDspPeriodKind, &Screen::optDspPeriod};
constexpr const char *kReportKey = "帳票種類";
constexpr const char *kSignatureKey = "署名日";

constexpr std::int16_t kDefaultKind = 1;

/// Both orders matter: selecting an option fires its click, and a failed write ends the writing. The report is read
/// after the kinds, so that its enabling overrides theirs.
constexpr std::array kReadOrder = {kObjectKind, kTrustKind, kTgtDateKind, kDspPeriodKind};
constexpr std::array kWriteOrder = {kTgtDateKind, kObjectKind, kDspPeriodKind, kTrustKind};

/// Enabling by the stored option, whether or not its selection fired a click.
struct StoredEnabling {
    OptionGroup Screen::*group;
    ControlPick control;
    std::array<bool, 3> isEnabledAt; ///< by index of the option
};
constexpr StoredEnabling kEnablings[] = {
    {&Screen::optTgtDate, pick<&Screen::frmObject>, {true, true, false}},
    {&Screen::optTgtDate, pick<&Screen::imD_Out>, {true, false, false}},
    {&Screen::optTgtDate, pick<&Screen::imD_LastDay>, {false, true, false}},
    {&Screen::optDspPeriod, pick<&Screen::imSetDateFrom>, {false, true}},
    {&Screen::optDspPeriod, pick<&Screen::imSetDateTo>, {false, true}},
    {&Screen::optSyomei, pick<&Screen::imSyomei>, {false, true}},
};

std::string readText(clsOplIniFile &file, const char *key)
{
    return rtrim(csCutNul(file.csGetProfileString(kSection, key)));
}

/// A number beyond 16 bits is an overflow; a non-numeric text gives the default.
std::int16_t readKind(clsOplIniFile &file, const char *key, const Regional &regional)
{
    const Variant text = readText(file, key);
    return isNumeric(text) ? toInteger(text, regional) : kDefaultKind;
}

/// Assigns the members in the order of their indices; the one that becomes selected fires its click.
void markStored(Screen &screen, OptionGroup Screen::*member, std::int16_t marked)
{
    OptionGroup &group = screen.*member;
    for (std::int16_t Index = 0; Index < group.count(); ++Index) group(Index).Value = Index == marked;
    for (const StoredEnabling &line : kEnablings)
        if (line.group == member) line.control(screen).Enabled = line.isEnabledAt.at(static_cast<std::size_t>(marked));
}

std::int16_t optionOfKind(std::int16_t kind, std::int16_t count)
{
    return kind >= 1 && kind <= count ? static_cast<std::int16_t>(kind - 1) : static_cast<std::int16_t>(count - 1);
}

std::int16_t optionOfReport(std::int32_t value)
{
    return value == 0 ? std::int16_t{0} : value == 2 ? std::int16_t{2} : std::int16_t{1};
}

bool isZero(const std::string &text, const Regional &regional)
{
    return isNumeric(text) && toDouble(text, regional) == 0;
}

void plainErrorBox(App &app, const std::string &text)
{
    app.platform.boxes.show("Error:" + text, Icon::none);
}

} // namespace

void frmPrintInin::nNullToLong(const Variant &vValue, std::int32_t &nResult) const
{
    nResult = inin::nNullToLong(vValue, m_app.regional);
}

std::int32_t frmPrintInin::iLoadPrintSetting()
try {
    clsOplIniFile file(m_app.platform);
    if (file.iInit(csDataDir(m_app) + kStoreFile) != iGood) return 0;
    for (const StoredKind &line : kReadOrder) {
        this->*line.kind = readKind(file, line.key, m_app.regional);
        markStored(*this, line.group, optionOfKind(this->*line.kind, (this->*line.group).count()));
    }
    std::int32_t report = 0;
    nNullToLong(readText(file, kReportKey), report);
    markStored(*this, &Screen::optPrint, optionOfReport(report));
    const bool isAutomatic = isZero(readText(file, kSignatureKey), m_app.regional);
    markStored(*this, &Screen::optSyomei, isAutomatic ? std::int16_t{0} : std::int16_t{1});
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
    const bool areKindsWritten =
        std::ranges::all_of(kWriteOrder, [&](const StoredKind &line) { return isWritten(line.key, this->*line.kind); });
    if (!areKindsWritten || !isWritten(kReportKey, markedPrintKind()) || !isWritten(kSignatureKey, markedSyomeiKind()))
        plainErrorBox(m_app, file.csErrMsg);
} catch (const RuntimeError &error) {
    plainErrorBox(m_app, error.description());
}

} // namespace inin
