#include "search/patient_search_form.h"

#include "common/error_text.h"
#include "common/helpers.h"
#include "master/patient_record.h"
#include "runtime/conversion.h"
#include "runtime/format.h"
#include "search/search_sql.h"
#include "search/staff_search_form.h"
#include "shell/error_box.h"
#include "shell/settings.h"

#include <array>

namespace inin {

namespace {

using Kind = Grid::CellKind;

constexpr std::int16_t kAreaColumn = 1;
constexpr SearchColumn kPatientColumns[] = {
    {"拠点 No.", Kind::number, 8, "iKyotenCd", "iKyotenEb"},
    {"ID No.", Kind::number, 8, "nIDNo"},
    {"利用者氏名", Kind::text, 16, "cName"},
    {"ﾌﾘｶﾞﾅ", Kind::text, 16, "cNameKana"},
    {"TEL", Kind::text, 14, "cTelNo"},
    {"住所１", Kind::text, 30, "cAdress1"},
    {"住所２", Kind::text, 20, "cAdress2"},
    {"名称地区", Kind::text, 12, "cNameRyaku"},
};
// Deliberate: the message for an empty staff list also mentions patients.
constexpr SearchDesign kPatientDesign{
    "frm患者検索",
    "利用者マスター検索",
    "chkEndKanja",
    "施術終了した利用者も表示",
    kPatientColumns,
    2,
    3,
    kAreaColumn,
    "該当する利用者データがありません。",
    "該当する利用者データがありません。",
};

/// Kinds of treatment by option index.
struct KindOption {
    std::int16_t kind;
    const char *caption;
};
constexpr std::array<KindOption, 3> kKinds = {{{kBothKinds, "共通"}, {kMassage, "マッサージ"}, {kAcupuncture, "鍼灸"}}};

/// Index of the first staff member in the list, after the entry that sets no condition.
constexpr std::int16_t kFirstStaff = 1;

/// No month is later, so that the limit excludes all months.
constexpr const char *kNoLimitMonth = "9999/12";

/// The month this many months after today's.
std::string monthText(App &app, std::int32_t months)
{
    const Date today = app.platform.clock.today();
    return formatText(DateSerial(Year(today), Month(today) + months, 1), "yyyy/mm", app.regional);
}

/// The conditions as text. Deliberate: it claims a full match, although the search matches parts of a text.
std::string conditionsText(const SearchFilter &filter)
{
    std::string text = "抽出条件：";
    if (!filter.name.empty()) text += " 名称（全文一致）=" + filter.name;
    if (!filter.kana.empty()) text += " かな（全文一致）=" + filter.kana;
    if (!filter.telephone.empty()) text += " TEL（全文一致）=" + filter.telephone;
    if (filter.includeEnded != 0) text += " 施術終了患者表示 ";
    if (filter.staffNumber > 0) text += " 担当施術者=" + filter.staffName;
    if (filter.kind == kMassage) text += " 施術区分=マッサージ";
    if (filter.kind == kAcupuncture) text += " 施術区分=鍼灸";
    if (filter.number > 0) text += " 利用者ID=" + std::to_string(filter.number);
    return text;
}

} // namespace

frm患者検索::frm患者検索(App &app) : SearchForm(app, kPatientDesign)
{
    addCommon();
    addLabelled(imNum_StaffNo, "施術者");
    addStop(cbo_Sejutusha);
    addLabelled(btn_StaffSelect, "検索");
    for (std::int16_t index = 0; index < opt_SejutsuKubun.count(); ++index)
        addLabelled(opt_SejutsuKubun(index), kKinds.at(static_cast<std::size_t>(index)).caption);
    addCommands();
    add(lbl_1ranInf);
    cbo_Sejutusha.onClick = [this] { trapped([this] { cbo_Sejutusha_Click(); }); };
    btn_StaffSelect.onClick = [this] { trapped([this] { btn_StaffSelect_Click(); }); };
}

std::int16_t frm患者検索::iInit(std::int32_t nSeledCode)
{
    prepare(nSeledCode, SearchFilter{});
    StartedSession own = startSession(app());
    if (own.isConnected()) {
        m_session = std::move(own.session);
        return iGood;
    }
    // Deliberate: only the heading of a failed connect has a blank.
    const char *heading = own.step == ConnectStep::connect ? "iInit() でエラー" : "iInit()でエラー";
    setErrStr(headingText(heading, own.csErrMsg));
    return iBad;
}

void frm患者検索::vGetSeledInf(std::int32_t &nSeledCD, std::string &csSeledName, std::int32_t *iArea) const
{
    nSeledCD = seledCD();
    csSeledName = seledName();
    if (iArea != nullptr) *iArea = area();
}

void frm患者検索::readSettings()
{
    // Set both defaults first: a bad setting ends this step, and the list must still open, without a limit month and
    // without the column.
    m_limitMonth = kNoLimitMonth;
    spr_1ran.setColumnWidth(kAreaColumn, 0);
    m_endedMonths = toInteger(vGetSystemValue(app(), "終了患者施術期間", WarnIfMissing::no));
    if (m_endedMonths == 0) return;
    m_limitMonth = monthText(app(), 1 - m_endedMonths);
    chkEndKanja.Caption = monthText(app(), -m_endedMonths) + "以前に、施術の終了した利用者も表示する。";
}

std::string frm患者検索::statement(const SearchFilter &filter) const
{
    return patientSearchSql(app(), filter, m_limitMonth);
}

SearchFilter frm患者検索::readFilter() const
{
    SearchFilter filter = SearchForm::readFilter();
    const std::int16_t staff = cbo_Sejutusha.ListIndex;
    if (staff > 0) {
        filter.staffNumber = cbo_Sejutusha.ItemData(staff);
        filter.staffName = cbo_Sejutusha.items()[static_cast<std::size_t>(staff)].text;
    }
    const std::int16_t kind = opt_SejutsuKubun.marked();
    if (kind >= 0) filter.kind = kKinds.at(static_cast<std::size_t>(kind)).kind;
    return filter;
}

void frm患者検索::showFilter(const SearchFilter &filter)
{
    SearchForm::showFilter(filter);
    if (filter.staffNumber > 0)
        cbo_Sejutusha.chooseItemData(filter.staffNumber, kFirstStaff);
    else
        cbo_Sejutusha.ListIndex = 0;
    for (std::int16_t index = 0; index < opt_SejutsuKubun.count(); ++index)
        if (kKinds.at(static_cast<std::size_t>(index)).kind == filter.kind) opt_SejutsuKubun(index).Value = true;
}

void frm患者検索::showStaff(const std::vector<StaffEntry> &staff)
{
    cbo_Sejutusha.Clear();
    cbo_Sejutusha.AddItem("- 指定なし -", 0);
    for (const StaffEntry &entry : staff) cbo_Sejutusha.AddItem(entry.name, entry.nIDNo);
    cbo_Sejutusha.ListIndex = 0;
}

void frm患者検索::clearInfo()
{
    lbl_1ranInf.Caption = "";
}

void frm患者検索::writeInfo(const SearchFilter &inForce)
{
    lbl_1ranInf.Caption =
        formatText(app().platform.clock.now(), "hh:nn:ss", app().regional) + "  " + conditionsText(inForce);
}

void frm患者検索::cbo_Sejutusha_Click()
{
    if (cbo_Sejutusha.ListIndex >= 0) imNum_StaffNo.Value = cbo_Sejutusha.ItemData(cbo_Sejutusha.ListIndex);
}

void frm患者検索::btn_StaffSelect_Click()
{
    cls施術者検索 staff(app());
    const std::int16_t status = staff.iDspStart();
    if (status == kNothingChosen) return;
    if (status != iGood) return showStaffFailure(staff.CsErrStr());
    imNum_StaffNo.Value = staff.nSeledCD;
    cbo_Sejutusha.chooseItemData(staff.nSeledCD, kFirstStaff);
}

bool frm患者検索::confirmEntry(const Control *active)
{
    return active != &imNum_StaffNo || lookUpStaff();
}

bool frm患者検索::lookUpStaff()
{
    const std::int32_t number = nNullToLong(imNum_StaffNo.Value);
    if (number == 0) {
        cbo_Sejutusha.ListIndex = 0;
        return true;
    }
    cls施術者検索 staff(app());
    if (staff.iChkStaff(number) != iGood) {
        showStaffFailure(staff.CsErrStr());
        return false;
    }
    cbo_Sejutusha.chooseItemData(number);
    return true;
}

void frm患者検索::showStaffFailure(const std::string &words)
{
    app().platform.boxes.show("施術者の検索に失敗しました" + words, Icon::critical);
}

std::int16_t cls患者検索::iDspStart()
try {
    frm患者検索 window(m_app);
    if (window.iInit(nSeledCD) != iGood) {
        m_errStr = window.CsErrStr();
        return iBad;
    }
    m_app.platform.windows.show(window, Modality::modal);
    if (!window.isChosen()) return kNothingChosen;
    window.vGetSeledInf(nSeledCD, m_seledName, &iArea);
    return iGood;
} catch (const RuntimeError &error) {
    m_errStr = numberedText(error);
    return iBad;
}

std::int16_t cls患者検索::iSetRiyouName(std::int32_t nCode, Label &Ctrl)
{
    return writeName(nCode, Ctrl.Caption);
}

std::int16_t cls患者検索::iSetRiyouName2(std::int32_t nCode, Label &Ctrl)
{
    return writeName(nCode, Ctrl.Caption);
}

std::int16_t cls患者検索::iSetRiyouName2(std::int32_t nCode, TextBox &Ctrl)
{
    return writeName(nCode, Ctrl.Text);
}

std::string cls患者検索::csSetRiyouName_Text(std::int32_t nCode)
try {
    return readName(nCode).value_or(std::string());
} catch (const RuntimeError &error) {
    m_errStr = numberedText(error);
    return {};
}

std::int16_t cls患者検索::writeName(std::int32_t nCode, Attribute<std::string> &target)
try {
    target = "";
    const std::optional<std::string> name = readName(nCode);
    if (!name) return iBad;
    target = *name;
    return iGood;
} catch (const RuntimeError &error) {
    m_errStr = numberedText(error);
    return iBad;
}

std::optional<std::string> cls患者検索::readName(std::int32_t nCode)
{
    RIYOUSHA_REC patient;
    if (iGetRiyoushaRec(m_app, nCode, patient) != kPatientRead) return std::nullopt;
    return trim(csCutNul(patient.cName));
}

} // namespace inin
