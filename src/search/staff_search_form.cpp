#include "search/staff_search_form.h"

#include "search/search_sql.h"

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

} // namespace inin
