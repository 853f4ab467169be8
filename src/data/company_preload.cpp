#include "data/company_preload.h"

#include "data/connection_settings.h"
#include "master/corp_table.h"
#include "shell/error_box.h"

namespace inin {

namespace {

constexpr const char *kHeading = "loadInitCorp でエラー";
constexpr const char *kTableHeading = "エラーが発生しました。";
/// The head office, the base for visit charges.
constexpr std::int32_t kHeadOffice = 0;

void fill(CompanyRecord &record, const cD_CORP &row)
{
    record.companyName = row.cShamei1 + row.cShamei2;
    record.businessNumber = row.cJigyousyoNo;
    record.postalCode = row.cYubinNo;
    record.address1 = row.cAddress1;
    record.address2 = row.cAddress2;
    record.telephone = row.cTelNo;
    record.fax = row.cFaxNo;
    record.reservedFixedText = "";
    record.reservedNumbers.fill(0);
    record.latitude = row.nLat;
    record.longitude = row.nLon;
    record.reservedText.clear();
    record.reservedFlag = 0;
    record.representative = row.cDaihyo;
    record.secondBusinessNumber = row.cJigyousyoNo2;
    record.mailDestination = row.cMailDestination;
    record.mailDestinationPostalCode = row.cMailDestinationZipNo;
}

/// Of several head offices the first row applies; a branch without one is no error.
void readHeadOffice(App &app, cT_ADODB &session, CompanyRecord &record)
{
    cT_CORP table(app);
    cD_CORP condition;
    condition.iType = kHeadOffice;
    if (table.iInit(session) != iGood || table.iDataRead(&condition) != iGood) {
        headingBox(app, kTableHeading, table.sErrMsg());
        return;
    }
    if (table.nデータ数() > 0) fill(record, table.clsCORP(0));
}

void preload(App &app, StartedSession &own, CompanyRecord &record)
try {
    own = startSession(app, kHeading);
    if (!own.isConnected()) return;
    readHeadOffice(app, *own.session, record);
    static_cast<void>(own.session->iDisConnect()); // the row is already read
} catch (const RuntimeError &error) {
    app.platform.boxes.show(numberLineText(error), Icon::none);
}

} // namespace

void loadInitCorp(App &app, CompanyRecord &record)
{
    // Outside the trap, so that the session is open until the box is answered.
    StartedSession own;
    preload(app, own, record);
}

} // namespace inin
