#pragma once

#include "master/corp_map.h"
#include "master/table_contract.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace inin {

/// A company: the head office, an agent or a group-claim company. -1 means no condition. The order is that of the
/// suite. The word lookups use the given code, not the row's own; an unknown code gives the empty text.
struct cD_CORP {
    std::string cHokenTourokuKubetsu, cJigyousyoNo2, cJigyouReceiptName, cKinyuNo, cKinyuSitenNo, cJigyousyoNo;
    std::string cAddress1, cAddress2, cAddressKana, cDaihyo, cDaihyoKana, cFaxNo;
    std::string cKinyuName, cKinyuSiten, cKozaBangou, cKozaKana, cKozaMeigi1, cKozaMeigi2;
    std::string cShamei1, cShamei2, cShameiKana1, cShameiKana2, cTelNo, cYubinNo;
    std::int32_t iKinSiten = -1;
    /// Kind of bank office: 本店, 支店, ...
    [[nodiscard]] static std::string_view sKinSiten(const std::int32_t &nCode);
    std::int32_t iKinSyubetsu = -1;
    /// Kind of bank: 銀行, 金庫, ...
    [[nodiscard]] static std::string_view sKinSyubetsu(const std::int32_t &nCode);
    std::int32_t iKozaKubun = -1, iKozaType = -1;
    /// Kind of account: 普通, 当座, ...
    [[nodiscard]] static std::string_view sKozaType(const std::int32_t &nCode);
    std::int32_t iType = -1;
    /// Role of the company: 0 is the head office, 1 and 2 are agents, 3 is a group-claim company.
    [[nodiscard]] static std::string_view sType(const std::int32_t &nCode);
    std::int32_t nIDNo = -1, nLat = -1, nLon = -1;
    std::string cPcName, tUpDateTime, cMailDestination, cMailDestinationZipNo, cPersonalNumberCorp;
    std::int32_t iKyotenToshiNo = 0;
    std::string cKokuhoTourokuNo, cEmail;
};

/// The companies of this branch. While the process-wide cChizuFlg is "1", an insert and an update write the company's map
/// between statement and commit.
class cT_CORP : public TableClass<cD_CORP> {
public:
    explicit cT_CORP(App &app);

    /// A row of the last read, from 0; error 9 outside. Valid until the next read.
    [[nodiscard]] const cD_CORP &clsCORP(std::int32_t nIdx) const { return rowAt(nIdx); }
    /// The highest number of this branch, 0 for a branch without companies.
    [[nodiscard]] std::int16_t iGetMaxIDNo(std::int32_t &nMaxNo);
    /// All companies, with the columns of a list.
    [[nodiscard]] std::int16_t iDataReadGrid();
    /// The companies of the number and kind, as far as these are above -1; all columns.
    [[nodiscard]] std::int16_t iDataRead(const cD_CORP *cData);
    /// Like iDataRead, but all companies except that number.
    [[nodiscard]] std::int16_t iDataReadChk(const cD_CORP *cData);
    [[nodiscard]] std::int16_t iDataInsert(const cD_CORP *cData, std::int32_t eOptions,
                                           Transaction bTransactionFlg = Transaction::ofTheCaller);
    [[nodiscard]] std::int16_t iDataUpdate(const cD_CORP *cData, std::int32_t eOptions,
                                           Transaction bTransactionFlg = Transaction::ofTheCaller);
    [[nodiscard]] std::int16_t iData削除(const cD_CORP *cData, std::int32_t eOptions,
                                         Transaction bTransactionFlg = Transaction::ofTheCaller);
    /// The columns of a list, by a number above 0 and by parts of the name and its kana. Here a row that is Nothing is
    /// the runtime's error 91.
    [[nodiscard]] std::int16_t iDataReadGrid_Jouken(const cD_CORP *cData);

private:
    [[nodiscard]] bool hasMap() const { return m_app.cChizuFlg == "1"; }

    CorpMap m_map;
};

} // namespace inin
