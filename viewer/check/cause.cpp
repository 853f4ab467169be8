#include "viewer/check/cause.h"

#include <array>

namespace inin::viewer {

namespace {

constexpr std::array<CauseText, kCauses> kTexts = {{
    {Cause::unreadableRow, "unreadableRow", "読めない行", "読み取れない行です",
     "印刷の画面から出力し直し、元のデータの引用符を取ってください。"},
    {Cause::blankPage, "blankPage", "白紙", "文字が一つも印刷されない委任状です",
     "帳票の文書と CSV の内容を確認してください。"},
    {Cause::noPatient, "noPatient", "利用者なし", "利用者名が入っていません", "利用者情報に氏名を登録してください。"},
    {Cause::noInsurer, "noInsurer", "保険者なし", "保険者名が入っていません", "保険者の登録を確認してください。"},
    {Cause::noCompany, "noCompany", "会社なし", "会社名が入っていません",
     "利用者の代理人か団体請求の指定と、会社情報の登録を確認してください。"},
    {Cause::blankBank, "blankBank", "金融機関なし", "金融機関名が入っていません",
     "会社情報に金融機関名と支店名を登録してください。"},
    {Cause::noAccountNumber, "noAccountNumber", "口座番号なし", "口座番号が入っていません",
     "会社情報に口座番号を登録してください。"},
    {Cause::noHolder, "noHolder", "口座名義なし", "口座名義が入っていません", "会社情報に口座名義を登録してください。"},
    {Cause::noDate, "noDate", "日付不明", "日付として読めません",
     "印刷の画面の日付と、パソコンの日付の表示形式を確認してください。"},
    {Cause::periodReversed, "periodReversed", "期間が逆", "委任期間の始まりと終わりが逆です",
     "印刷の画面の委任期間を入力し直してください。"},
    {Cause::signatureOutside, "signatureOutside", "署名日が期間外", "署名日が委任期間の外です",
     "印刷の画面の署名日か委任期間を入力し直してください。"},
    {Cause::lastDayOutside, "lastDayOutside", "施術日が期間外", "最終施術日が委任期間の外です",
     "印刷の画面の委任期間か、予定・実績の日付を直してください。"},
    {Cause::noHouseholder, "noHouseholder", "世帯主なし", "世帯主名が入っていません",
     "利用者情報に世帯主名を登録してください。"},
    {Cause::sameLetter, "sameLetter", "同じ委任状", "まったく同じ委任状があります",
     "一通を残して印を外し、利用者情報の二重登録を確認してください。"},
    {Cause::samePerson, "samePerson", "同じ利用者", "同じ利用者の委任状があります",
     "利用者情報の二重登録を確認し、いらない委任状の印を外してください。"},
    {Cause::lostCharacter, "lostCharacter", "文字化け", "「?」に変わった文字があります",
     "元のデータの外字や特殊な漢字を、通常の漢字に直してください。"},
    {Cause::missingInFont, "missingInFont", "書体にない字", "書体にない文字があります",
     "元のデータの文字を通常の字に直すか、帳票の書体を替えてください。"},
    {Cause::doesNotFit, "doesNotFit", "枠に入らない", "枠に入りきらない文字があります",
     "元のデータを短くするか、帳票の枠を広げてください。"},
    {Cause::shrunk, "shrunk", "縮小", "小さくした文字があります",
     "読みにくいときは元のデータを短くするか、帳票の枠を広げてください。"},
}};

constexpr bool standInOrder()
{
    for (std::size_t i = 0; i < kTexts.size(); ++i)
        if (kTexts[i].cause != static_cast<Cause>(i)) return false;
    return true;
}
static_assert(standInOrder(), "a cause finds its texts by its number");

} // namespace

const CauseText &textOf(Cause cause)
{
    return kTexts[static_cast<std::size_t>(cause)];
}

} // namespace inin::viewer
