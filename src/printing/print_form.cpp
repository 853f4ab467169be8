#include "printing/print_form.h"

#include "shell/online_help.h"
#include "shell/version_form.h"

#include <algorithm>

namespace inin {

namespace {
// Client area in twips.
constexpr std::int32_t kWidth = 7020;
constexpr std::int32_t kHeight = 11025;
} // namespace

frmPrintInin::frmPrintInin(App &app) : Form("frmPrintInin"), m_app(app)
{
    Caption = "委任状印刷";
    Width = kWidth;
    Height = kHeight;
    for (Control *control : designed()) add(*control, control->Container);
    wireEvents();
}

/// Connects each event to its procedure. A change of either date box updates the month label, whichever target is
/// selected.
void frmPrintInin::wireEvents()
{
    optPrint.onClick = [this](std::int16_t Index) { optPrint_Click(Index); };
    optObject.onClick = [this](std::int16_t Index) { optObject_Click(Index); };
    optTgtDate.onClick = [this](std::int16_t Index) { optTgtDate_Click(Index); };
    optTrust.onClick = [this](std::int16_t Index) { optTrust_Click(Index); };
    optDspPeriod.onClick = [this](std::int16_t Index) { optDspPeriod_Click(Index); };
    optSyomei.onClick = [this](std::int16_t Index) { optSyomei_Click(Index); };
    imD_Out.onChange = [this] { imD_Out_Change(); };
    imD_LastDay.onChange = [this] { imD_LastDay_Change(); };
    cbSejyutsu.onClick = [this] { cbSejyutsu_Click(); };
    chkChushi.onClick = [this] { chkChushi_Click(); };
    btn_StaffSelect.onClick = [this] { btn_StaffSelect_Click(); };
    imNum_StaffNo.onKeyPress = [this](std::int16_t KeyCode) { imNum_StaffNo_KeyPress(KeyCode); };
    btn_KanjaSelect.onClick = [this] { btn_KanjaSelect_Click(); };
    imNum_CD.onKeyPress = [this](std::int16_t KeyCode) { imNum_CD_KeyPress(KeyCode); };
    btnPrint.onClick = [this](std::int16_t Index) { btnPrint_Click(Index); };
    mnF01.onClick = [this] { mnF01_Click(); };
    mnF02.onClick = [this] { mnF02_Click(); };
    mnF12.onClick = [this] { mnF12_Click(); };
    mnVer.onClick = [this] { mnVer_Click(); };
    mnDispHelp.onClick = [this] { mnDispHelp_Click(); };
}

void frmPrintInin::mnF01_Click()
{
    vRunPrint(1);
}

void frmPrintInin::mnF02_Click()
{
    vRunPrint(0);
}

void frmPrintInin::mnF12_Click()
{
    unload();
}

/// The indices 2 to 5 have no button.
void frmPrintInin::btnPrint_Click(std::int16_t Index)
{
    switch (Index) {
    case 0:
        return mnF01_Click();
    case 1:
        return mnF02_Click();
    case 6:
        return mnF12_Click();
    default:
        return;
    }
}

void frmPrintInin::mnVer_Click()
{
    frmVer window(m_app);
    window.iSystemId = kOwnSystemId;
    // Accessing a control of a window loads the window first.
    window.load();
    window.laVer.Caption = Caption;
    m_app.platform.windows.show(window, Modality::modal);
}

void frmPrintInin::mnDispHelp_Click()
{
    setMousePointer(kPointerHourglass);
    vDispHelp(m_app, kFirstHelpPage);
    setMousePointer(kPointerDefault);
}

std::vector<std::pair<std::string, Variant>> frmPrintInin::fields() const
{
    return {
        {"csErrMsg", csErrMsg},         {"iRowCount", iRowCount},     {"csTargetDate", csTargetDate},
        {"iTgtDateKind", iTgtDateKind}, {"iObjectKind", iObjectKind}, {"iDspPeriodKind", iDspPeriodKind},
        {"iTrustKind", iTrustKind},     {"iHokenIndex", iHokenIndex}, {"iPeriodFromDay", iPeriodFromDay},
        {"iPeriodToDay", iPeriodToDay}, {"nStaffNo", nStaffNo},       {"nKanjaNo", nKanjaNo},
        {"iExpireKind", iExpireKind},   {"iPrintKind", iPrintKind},   {"iSyomeiKind", iSyomeiKind},
    };
}

std::vector<std::vector<std::string>> frmPrintInin::rows() const
{
    const auto counted = static_cast<std::size_t>(std::max<std::int16_t>(iRowCount, 0));
    std::vector<std::vector<std::string>> texts(std::min(counted, aIninRow.size()));
    for (std::size_t index = 0; index < texts.size(); ++index)
        for (const IninField field : kIninFields) texts[index].emplace_back((aIninRow[index].*field).view());
    return texts;
}

} // namespace inin
