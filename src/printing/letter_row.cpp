#include "printing/letter_row.h"

#include "master/corp_table.h"
#include "runtime/text.h"

#include <initializer_list>
#include <span>

namespace inin {

const std::array<IninField, 20> kIninFields = {
    &IninRow::対象開始日, &IninRow::対象終了日, &IninRow::保険者名,   &IninRow::利用者氏名,   &IninRow::利用者住所,
    &IninRow::会社名称,   &IninRow::会社住所,   &IninRow::代表者名,   &IninRow::会社電話番号, &IninRow::金融機関名,
    &IninRow::口座番号,   &IninRow::口座名義,   &IninRow::最終施術日, &IninRow::保険者地区名, &IninRow::保険種別,
    &IninRow::世帯主名,   &IninRow::世帯主電話, &IninRow::世帯主住所, &IninRow::金融機関名２, &IninRow::署名日,
};

namespace {

// Words by kind, counted from 1. The account words are specific to the letter; the bank words are those of the suite.
constexpr std::string_view kKozaWords[] = {"(普)", "(当)", "(通)", "(別)"};

std::string_view wordOf(std::span<const std::string_view> words, std::int32_t kind)
{
    if (kind < 1 || kind > static_cast<std::int32_t>(words.size())) return {};
    return words[static_cast<std::size_t>(kind) - 1];
}

std::string joined(std::initializer_list<std::string_view> parts)
{
    std::size_t size = 0;
    for (const std::string_view part : parts) size += part.size();
    std::string line;
    line.reserve(size);
    for (const std::string_view part : parts) line += part;
    return line;
}

} // namespace

std::string_view csKinyuKind(std::int16_t iKind)
{
    return cD_CORP::sKinSyubetsu(iKind);
}

std::string_view csSitenKind(std::int16_t iKind)
{
    return cD_CORP::sKinSiten(iKind);
}

std::string bankLine(std::string_view cKinyuName, std::int16_t iKinSyubetsu, std::string_view cKinyuSiten,
                     std::int16_t iKinSiten)
{
    return joined({cKinyuName, csKinyuKind(iKinSyubetsu), "  ", cKinyuSiten, csSitenKind(iKinSiten)});
}

std::string secondBankLine(std::string_view bankLine, std::string_view cKinyuName, std::string_view cKinyuSiten)
{
    if (trim(bankLine).empty()) return {};
    return joined({cKinyuName, "銀行  ", cKinyuSiten, "支店"});
}

std::string accountLine(std::int32_t iKozaType, std::string_view cKozaBangou)
{
    return joined({wordOf(kKozaWords, iKozaType), " ", cKozaBangou});
}

} // namespace inin
