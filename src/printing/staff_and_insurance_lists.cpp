#include "data/connection_settings.h"
#include "master/hoken_table.h"
#include "master/staff_table.h"
#include "printing/print_form.h"
#include "shell/error_box.h"

namespace inin {

namespace {

constexpr const char *kNoChoiceText = "－ 指定なし －";

/// Fills a list after a first entry that sets no condition. Selecting that entry fires the click of the staff list.
template <class Item> void fillList(ListBox &list, std::int32_t count, Item &&item)
{
    list.Clear();
    list.AddItem(kNoChoiceText, kNoChoice);
    for (std::int32_t index = 0; index < count; ++index) {
        auto [text, number] = item(index);
        list.AddItem(text, number);
    }
    list.ListIndex = std::int16_t{0};
}

} // namespace

std::int16_t frmPrintInin::setStuff()
try {
    const auto failed = [this](const std::string &words) {
        csErrMsg = words;
        return iBad;
    };
    // Without a session the table class would fail at its first read with the same text.
    if (!session) throw RuntimeError(error_number::objectNotSet);
    // Deliberate: no separator between "でエラー" and the error text.
    cT_STAFF staff(m_app);
    if (staff.iInit(*session) != iGood) return failed("setStuff でエラー" + staff.sErrMsg());
    cD_STAFF condition;
    condition.iChusiFlg = chkChushi.Value;
    if (staff.iDataReadGrid(&condition) != iGood) return failed("setStuff でエラー" + staff.sErrMsg());
    if (staff.nデータ数() < 1) return failed("スタッフが存在しません。メイン画面に戻ります");
    fillList(cbSejyutsu, staff.nデータ数(), [&](std::int32_t index) {
        const cD_STAFF &row = staff.clsSTAFF(index);
        return ListBox::Item{row.cName, row.nIDNo};
    });
    return iGood;
} catch (const RuntimeError &error) {
    csErrMsg = "setStuff でエラー" + numberLineText(error);
    return iBad;
}

void frmPrintInin::chkChushi_Click()
{
    static_cast<void>(setStuff()); // a failure is visible only in csErrMsg
}

/// On a failure the entries added so far remain. A failed session shows its box here, and the load adds a second box.
std::int16_t frmPrintInin::nGetFutanKingaku()
try {
    const StartedSession own = startSession(m_app, "nGetFutanKingaku() でエラー");
    if (!own.isConnected()) return iBad;
    cT_HOKEN hoken(m_app);
    const cD_HOKEN condition;
    if (hoken.iInit(*own.session) != iGood || hoken.iDataRead(&condition) != iGood) return iBad;
    fillList(cmbHoken, hoken.nデータ数(), [&](std::int32_t index) {
        const cD_HOKEN &row = hoken.clsHOKEN(index);
        return ListBox::Item{row.cType, row.iType};
    });
    static_cast<void>(own.session->iDisConnect()); // the list is filled either way
    return iGood;
} catch (const RuntimeError &) {
    return iBad;
}

} // namespace inin
