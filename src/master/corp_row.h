#pragma once

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

} // namespace inin
