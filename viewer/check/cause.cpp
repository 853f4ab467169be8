#include "viewer/check/cause.h"

#include <algorithm>
#include <array>

namespace inin::viewer {

namespace {

constexpr std::array<CauseText, kCauses> kTexts = {{
    {Cause::unreadableRow, "unreadableRow", "読めない行", "読み取れない行です",
     "利用者マスター、本社情報、代理人情報から引用符を取り、条件の画面からもう一度出力してください。"},
    {Cause::blankPage, "blankPage", "白紙", "文字が一つも印刷されない委任状です",
     "帳票のファイルと、条件の画面で選んだ条件を確認してください。"},
    {Cause::noPatient, "noPatient", "利用者なし", "利用者名が入っていません",
     "利用者マスターに氏名を登録してください。"},
    {Cause::noPatientAddress, "noPatientAddress", "利用者住所なし", "利用者の住所が入っていません",
     "利用者マスターに住所を登録してください。"},
    {Cause::noInsurer, "noInsurer", "保険者なし", "保険者名が入っていません",
     "利用者マスターの保険者と、その保険者の登録を確認してください。"},
    {Cause::noCompany, "noCompany", "会社なし", "会社名が入っていません",
     "利用者マスターの代理人か団体請求の指定と、本社情報か代理人情報の登録を確認してください。"},
    {Cause::noCompanyAddress, "noCompanyAddress", "会社住所なし", "会社の住所が入っていません",
     "本社情報か代理人情報に住所を登録してください。"},
    {Cause::noRepresentative, "noRepresentative", "代表者なし", "代表者名が入っていません",
     "本社情報か代理人情報に代表者名を登録してください。"},
    {Cause::noTelephone, "noTelephone", "会社電話なし", "会社の電話番号が入っていません",
     "本社情報か代理人情報に電話番号を登録してください。"},
    {Cause::blankBank, "blankBank", "金融機関なし", "金融機関名が入っていません",
     "本社情報か代理人情報に金融機関名と支店名を登録してください。"},
    {Cause::halfBank, "halfBank", "支店なし", "金融機関名と支店名の片方が入っていません",
     "本社情報か代理人情報に金融機関名と支店名の両方を登録してください。"},
    {Cause::noAccountNumber, "noAccountNumber", "口座番号なし", "口座番号が入っていません",
     "本社情報か代理人情報に口座番号を登録してください。"},
    {Cause::shortAccountNumber, "shortAccountNumber", "口座番号が短い", "口座番号が4桁に足りません",
     "本社情報か代理人情報の口座番号を確認してください。"},
    {Cause::noHolder, "noHolder", "口座名義なし", "口座名義が入っていません",
     "本社情報か代理人情報に口座名義を登録してください。"},
    {Cause::noDate, "noDate", "日付不明", "日付として読めません",
     "条件の画面の日付と、パソコンの日付の表示形式を確認してください。"},
    {Cause::farDate, "farDate", "日付が遠い", "今日から二年を超えて離れた日付があります",
     "条件の画面の日付の年と、予定・実績の日付を確認してください。"},
    {Cause::periodReversed, "periodReversed", "期間が逆", "委任期間の始まりと終わりが逆です",
     "条件の画面の委任期間を入力し直してください。"},
    {Cause::longPeriod, "longPeriod", "期間が長い", "委任期間が二か月を超えています",
     "条件の画面の委任期間を確認してください。"},
    {Cause::signatureOutside, "signatureOutside", "署名日が期間外", "署名日が委任期間の外です",
     "条件の画面の署名日か委任期間を入力し直してください。"},
    {Cause::lastDayOutside, "lastDayOutside", "施術日が期間外", "最終施術日が委任期間の外です",
     "条件の画面の委任期間か、予定・実績の日付を直してください。"},
    {Cause::noHouseholder, "noHouseholder", "世帯主なし", "世帯主名が入っていません",
     "利用者マスターに世帯主名を登録してください。"},
    {Cause::noHouseholderAddress, "noHouseholderAddress", "世帯主住所なし", "世帯主の住所が入っていません",
     "利用者マスターに世帯主の住所を登録してください。"},
    {Cause::noHouseholderTelephone, "noHouseholderTelephone", "世帯主電話なし", "世帯主の電話番号が入っていません",
     "利用者マスターに世帯主の電話番号を登録してください。"},
    {Cause::sameLetter, "sameLetter", "同じ委任状", "まったく同じ委任状があります",
     "一通を残してチェックを外し、利用者マスターの二重登録を確認してください。"},
    {Cause::samePerson, "samePerson", "同じ利用者", "同じ利用者の委任状があります",
     "利用者マスターの二重登録を確認し、いらない委任状のチェックを外してください。"},
    {Cause::unknownCode, "unknownCode", "コード不明", "帳票のコードの一覧にない値です",
     "帳票の差し込みのコードの一覧を、保険種別などのマスターに合わせて直してください。"},
    {Cause::unfilledField, "unfilledField", "差し込み残り", "差し込みの波かっこが、そのまま印刷されます",
     "帳票の差し込みを半角の波かっこで書き直すか、利用者マスター、本社情報、代理人情報から波かっこを取ってください。"},
    {Cause::getaMark, "getaMark", "〓", "「〓」が入っています",
     "利用者マスター、本社情報、代理人情報の「〓」を、正しい文字に直してください。"},
    {Cause::lostCharacter, "lostCharacter", "文字化け", "「?」に変わった文字があります",
     "利用者マスター、本社情報、代理人情報の外字や特殊な漢字を、通常の漢字に直してください。"},
    {Cause::missingInFont, "missingInFont", "フォントにない字", "フォントにない文字があります",
     "利用者マスター、本社情報、代理人情報の文字を通常の字に直すか、帳票のフォントを替えてください。"},
    {Cause::doesNotFit, "doesNotFit", "枠に入らない", "枠に入りきらない文字があります",
     "利用者マスター、本社情報、代理人情報の文を短くするか、帳票の枠を広げてください。"},
    {Cause::shrunk, "shrunk", "縮小", "小さくした文字があります",
     "読みにくいときは、利用者マスター、本社情報、代理人情報の文を短くするか、帳票の枠を広げてください。"},
}};

constexpr bool areInOrder()
{
    for (std::size_t i = 0; i < kTexts.size(); ++i)
        if (kTexts[i].cause != static_cast<Cause>(i)) return false;
    return true;
}
static_assert(areInOrder(), "a cause finds its texts by its number");

} // namespace

const CauseText &textOf(Cause cause)
{
    return kTexts[static_cast<std::size_t>(cause)];
}

std::optional<Cause> causeNamed(std::string_view name)
{
    const auto *const found = std::ranges::find(kTexts, name, &CauseText::name);
    if (found == kTexts.end()) return std::nullopt;
    return found->cause;
}

} // namespace inin::viewer
