#include "master/corp_columns.h"

namespace inin {

namespace {

using enum WrittenAs;
using enum ValueFrom;
using enum SelectForm;

constexpr CorpColumn kCorpColumns[] = {
    // column, property, notation; named by the read, by the grid, by the conditioned grid
    {{"iKyotenCd", {}, quoted, siteCode, OnUpdate::kept}, none, none, none},
    {{"iKyotenEb", {}, quoted, siteSubCode, OnUpdate::kept}, none, none, none},
    {{"cAddress1", &cD_CORP::cAddress1, quoted}, aliased, aliased, aliased},
    {{"cAddress2", &cD_CORP::cAddress2, quoted}, aliased, aliased, aliased},
    {{"cAddressKana", &cD_CORP::cAddressKana, quoted}, aliased, none, none},
    {{"cDaihyo", &cD_CORP::cDaihyo, quoted}, aliased, aliased, aliased},
    {{"cDaihyoKana", &cD_CORP::cDaihyoKana, quoted}, aliased, none, none},
    {{"cFaxNo", &cD_CORP::cFaxNo, quoted}, aliased, aliased, aliased},
    {{"cKinyuName", &cD_CORP::cKinyuName, quoted}, aliased, none, none},
    {{"cKinyuSiten", &cD_CORP::cKinyuSiten, quoted}, aliased, none, none},
    {{"cKozaBangou", &cD_CORP::cKozaBangou, quoted}, aliased, none, none},
    {{"cKozaKana", &cD_CORP::cKozaKana, quoted}, aliased, none, none},
    {{"cKozaMeigi1", &cD_CORP::cKozaMeigi1, quoted}, aliased, none, none},
    {{"cKozaMeigi2", &cD_CORP::cKozaMeigi2, quoted}, aliased, none, none},
    {{"cShamei1", &cD_CORP::cShamei1, quoted}, aliased, aliased, aliased},
    {{"cShamei2", &cD_CORP::cShamei2, quoted}, aliased, aliased, aliased},
    {{"cShameiKana1", &cD_CORP::cShameiKana1, quoted}, aliased, none, none},
    {{"cShameiKana2", &cD_CORP::cShameiKana2, quoted}, aliased, none, none},
    {{"cTelNo", &cD_CORP::cTelNo, quoted}, aliased, aliased, aliased},
    {{"cYubinNo", &cD_CORP::cYubinNo, quoted}, aliased, aliased, aliased},
    {{"iKinSiten", &cD_CORP::iKinSiten, number}, aliased, none, none},
    {{"iKinSyubetsu", &cD_CORP::iKinSyubetsu, number}, aliased, none, none},
    {{"iKozaKubun", &cD_CORP::iKozaKubun, number}, aliased, none, none},
    {{"iKozaType", &cD_CORP::iKozaType, number}, aliased, none, none},
    {{"iType", &cD_CORP::iType, number}, aliased, aliased, aliased},
    {{"nIDNo", &cD_CORP::nIDNo, number}, aliased, aliased, aliased},
    {{"nLat", &cD_CORP::nLat, number}, aliased, none, none},
    {{"nLon", &cD_CORP::nLon, number}, aliased, none, none},
    {{"cPcName", &cD_CORP::cPcName, quoted, computerName}, aliased, none, none},
    {{"tUpDateTime", &cD_CORP::tUpDateTime, serverTime}, aliased, none, none},
    {{"cKinyuNo", &cD_CORP::cKinyuNo, quoted}, bare, none, none},
    {{"cKinyuSitenNo", &cD_CORP::cKinyuSitenNo, quoted}, bare, none, none},
    {{"cJigyousyoNo", &cD_CORP::cJigyousyoNo, quoted}, bare, none, none},
    {{"cJigyousyoNo2", &cD_CORP::cJigyousyoNo2, quoted}, aliased, none, none},
    {{"cJigyouReceiptName", &cD_CORP::cJigyouReceiptName, quoted}, aliased, none, none},
    {{"cMailDestination", &cD_CORP::cMailDestination, quoted}, aliased, aliased, aliased},
    {{"cMailDestinationZipNo", &cD_CORP::cMailDestinationZipNo, quoted}, aliased, aliased, aliased},
    {{"cHokenTourokuKubetsu", &cD_CORP::cHokenTourokuKubetsu, quoted}, aliased, qualified, aliased},
    {{"cPersonalNumberCorp", &cD_CORP::cPersonalNumberCorp, quoted}, aliased, qualified, aliased},
    {{"iKyotenToshiNo", &cD_CORP::iKyotenToshiNo, number}, aliased, qualified, aliased},
    {{"cKokuhoTourokuNo", &cD_CORP::cKokuhoTourokuNo, quoted}, aliased, qualified, aliased},
    {{"cEmail", &cD_CORP::cEmail, quoted}, aliased, qualified, aliased},
};

} // namespace

std::span<const CorpColumn> corpColumns()
{
    return kCorpColumns;
}

SelectList<cD_CORP> corpSelectList(SelectForm CorpColumn::*read)
{
    SelectList<cD_CORP> list(kCorp.name);
    for (const CorpColumn &column : kCorpColumns)
        if (column.*read != none) list.add(column, column.*read);
    return list;
}

} // namespace inin
