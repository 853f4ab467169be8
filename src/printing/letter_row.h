#pragma once

#include "printing/shared_text.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace inin {

/// One proxy letter: twenty finished texts, in the order of the CSV's columns.
struct IninRow {
    SharedText 対象開始日;
    SharedText 対象終了日;
    SharedText 保険者名;
    SharedText 利用者氏名;
    SharedText 利用者住所;
    SharedText 会社名称;
    SharedText 会社住所;
    SharedText 代表者名;
    SharedText 会社電話番号;
    SharedText 金融機関名;
    SharedText 口座番号;
    SharedText 口座名義;
    SharedText 最終施術日;
    SharedText 保険者地区名;
    SharedText 保険種別; ///< the insurer's kind as digits
    SharedText 世帯主名;
    SharedText 世帯主電話;
    SharedText 世帯主住所;
    SharedText 金融機関名２;
    SharedText 署名日;

    friend bool operator==(const IninRow &, const IninRow &) = default;
};

/// The fields of a row in column order.
using IninField = SharedText IninRow::*;
extern const std::array<IninField, 20> kIninFields;

/// The word of a kind of bank: 1 銀行, 2 金庫, 3 農協, 4 郵便局, else empty.
[[nodiscard]] std::string_view csKinyuKind(std::int16_t iKind);
/// The word of a kind of bank office: 1 本店, 2 支店, 3 本所, 4 支所, 5 出張所, else empty.
[[nodiscard]] std::string_view csSitenKind(std::int16_t iKind);
/// Bank, its word, two blanks, office, its word.
[[nodiscard]] std::string bankLine(std::string_view cKinyuName, std::int16_t iKinSyubetsu, std::string_view cKinyuSiten,
                                   std::int16_t iKinSiten);
/// Empty if the bank line is blank. Deliberate: otherwise always 銀行 and 支店, whatever the kinds are.
[[nodiscard]] std::string secondBankLine(std::string_view bankLine, std::string_view cKinyuName,
                                         std::string_view cKinyuSiten);
/// (普), (当), (通), (別) or nothing, one blank, the number: never empty.
[[nodiscard]] std::string accountLine(std::int32_t iKozaType, std::string_view cKozaBangou);

} // namespace inin
