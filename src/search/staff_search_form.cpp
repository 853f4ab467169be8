#include "search/staff_search_form.h"

#include "common/helpers.h"
#include "data/connection_settings.h"
#include "search/search_sql.h"
#include "shell/error_box.h"

namespace inin {

namespace {

using Kind = Grid::CellKind;

constexpr SearchColumn kStaffColumns[] = {
    {"IDNo.", Kind::number, 8, "nIDNo"},
    {"施術者名", Kind::text, 20, "cName"},
    {"フリガナ", Kind::text, 20, "cNameKana"},
};
constexpr SearchDesign kStaffDesign{
    "frm施術者検索",
    "施術者検索",
    "chkEndSejutsuha",
    "管理を終了した施術者も表示する",
    kStaffColumns,
    1,
    2,
    0,
    "該当する患者データがありません。",
    "該当する施術者データがありません。",
};

constexpr const char *kCheckHeading = "iChkStaff でエラー";
constexpr std::int16_t kNotUsable = 1;

} // namespace

frm施術者検索::frm施術者検索(App &app) : SearchForm(app, kStaffDesign)
{
    addCommon();
    addCommands();
}

std::int16_t frm施術者検索::iInit(std::int32_t nSeledCode, std::int16_t iKanriEnd, std::int32_t nSelEigyouCd)
{
    m_nSelEigyouCd = nSelEigyouCd;
    SearchFilter filter;
    filter.includeEnded = iKanriEnd;
    prepare(nSeledCode, filter);
    return iGood;
}

void frm施術者検索::vGetSeledInf(std::int32_t &nSeledCD, std::string &csSeledName) const
{
    nSeledCD = seledCD();
    csSeledName = seledName();
}

std::string frm施術者検索::statement(const SearchFilter &filter) const
{
    return staffSearchSql(app(), filter, m_nSelEigyouCd);
}

std::int16_t cls施術者検索::iDspStart(std::int16_t iKanriEnd, std::int32_t nSelEigyouCd)
try {
    frm施術者検索 window(m_app);
    if (window.iInit(nSeledCD, iKanriEnd, nSelEigyouCd) != iGood) {
        m_errStr = window.CsErrStr();
        return iBad;
    }
    m_app.platform.windows.show(window, Modality::modal);
    if (!window.isChosen()) return kNothingChosen;
    window.vGetSeledInf(nSeledCD, m_seledName);
    return iGood;
} catch (const RuntimeError &error) {
    m_errStr = numberedText(error);
    return iBad;
}

std::int16_t cls施術者検索::iChkStaff(std::int32_t nIDNo, std::int16_t iKanriEnd)
try {
    StartedSession own = startSession(m_app, kCheckHeading);
    if (!own.isConnected()) return kNotUsable;
    m_errStr.clear();
    std::unique_ptr<Recordset> rsData = m_app.platform.database.newRecordset();
    const std::string sql = staffCheckSql(m_app, nIDNo);
    if (own.session->iOpenRecSet(*rsData, sql, adOpenForwardOnly, adLockReadOnly, adCmdText) != iGood) {
        headingBox(m_app, kCheckHeading, own.session->sErrMsg());
        return kNotUsable;
    }
    m_errStr = whyNotUsable(*rsData, iKanriEnd);
    if (m_errStr.empty()) m_seledName = csNullRTrim(rsData->Field("cName"), m_app.regional);
    // A failure to close does not change the result.
    static_cast<void>(own.session->iCloseRecSet(rsData));
    static_cast<void>(own.session->iDisConnect());
    return m_errStr.empty() ? iGood : kNotUsable;
} catch (const RuntimeError &error) {
    m_errStr = numberedText(error);
    return kNotUsable;
}

/// Empty if the staff member is usable.
std::string cls施術者検索::whyNotUsable(const Recordset &rsData, std::int16_t iKanriEnd) const
{
    if (rsData.isEndOfFile()) return "対象の施術者が存在しません。";
    const bool hasEnded = nNullToLong(rsData.Field("iChusiFlg")) == 1;
    return hasEnded && iKanriEnd == 0 ? "管理対象から外れています。" : std::string();
}

} // namespace inin
