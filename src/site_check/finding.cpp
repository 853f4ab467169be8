#include "site_check/finding.h"

#include <fmt/format.h>
#include <nlohmann/json.hpp>

#include <algorithm>

namespace inin::site {

namespace {

using enum Severity;
using enum FindingKind;

constexpr FindingText kTexts[] = {
    {noFolder, unchecked, "フォルダーがない"},
    {noSettings, fault, "Massage.ini がない"},
    {noConnectionFile, fault, "adodb.ini がない"},
    {unreadableSettings, fault, "設定ファイルを読み込めない"},
    {notCodePage932, fault, "設定ファイルの文字コードが CP932 ではない"},
    {missingKey, fault, "Massage.ini に項目がない"},
    {noLeadingBackslash, fault, "フォルダーの値が「\\」で始まらない"},
    {missingFolder, fault, "設定したフォルダーがない"},
    {otherTemporaryFolder, fault, "SYSTEM_TMP が「\\TMP」ではない"},
    {missingWallpaper, fault, "背景の画像がない"},
    {wallpaperIsNoPicture, fault, "背景のファイルが画像ではない"},
    {wallpaperNotPaintable, fault, "背景の画像を表示できない"},
    {badMonths, fault, "終了患者施術期間が月数ではない"},
    {badBranch, fault, "BASEID が4桁の数字ではない"},
    {noPrintSettings, notice, "印刷設定.ini がまだない"},
    {notWritable, fault, "設定したフォルダーに書き込めない"},
    {missingProgram, fault, "メニューか帳票ツールがない"},
    {notExecutable, fault, "メニューか帳票ツールを実行できない"},
    {noMerger, notice, "結合の帳票ツールがないか、実行できない"},
    {onlyAsAdministrator, fault, "メニューか帳票ツールに「管理者として実行」の設定がある"},
    {missingForm, fault, "帳票がない"},
    {unreadableForm, fault, "帳票を読み込めない"},
    {unknownFormColumn, fault, "帳票に委任状にない列がある"},
    {foreignForm, notice, "帳票が SVG ではない"},
    {noConnectionString, fault, "adodb.ini に接続文字列がない"},
    {longConnectionString, fault, "接続文字列が長すぎる"},
    {cannotConnect, fault, "データベースに接続できない"},
    {damagedDatabase, fault, "データベースのファイルが壊れている"},
    {missingTable, fault, "テーブルがない"},
    {missingColumn, fault, "列がない"},
    {onlyFor32Bits, fault, "データソースかサーバーの別名が32ビット用だけにある"},
    {unreadableTable, fault, "テーブルを読み込めない"},
    {noHeadOffice, fault, "本社の会社がない"},
    {severalHeadOffices, fault, "本社の会社が複数ある"},
    {noGroupCompany, fault, "団体請求の会社がない"},
    {severalGroupCompanies, fault, "団体請求の会社が複数ある"},
    {missingAgent, fault, "利用者の代理人が会社にない"},
    {noStaff, fault, "施術者がいない"},
    {breakingValue, fault, "委任状が増えるか崩れる値がある"},
    {moreBreakingValues, fault, "委任状が増えるか崩れる値がほかにもある"},
    {demoMissingAgent, notice, "見本として、代理人が会社にない利用者がいる"},
    {otherCodePage, fault, "コンピューターの文字コードが日本語ではない"},
    {unreadableShortDate, fault, "コンピューターの短い日付の形式をデータベースが読めない"},
    {virtualStoreCopies, fault, "サイトのファイルが VirtualStore にもある"},
};

std::string_view nameOf(Severity severity)
{
    return severity == notice ? "notice" : severity == fault ? "fault" : "unchecked";
}

} // namespace

std::span<const FindingText> findingTexts()
{
    return kTexts;
}

const FindingText &findingText(FindingKind kind)
{
    return *std::ranges::find(kTexts, kind, &FindingText::kind);
}

std::size_t countOf(const Findings &findings, Severity severity)
{
    return static_cast<std::size_t>(std::ranges::count_if(
        findings, [severity](const Finding &finding) { return findingText(finding.kind).severity == severity; }));
}

std::string lineOf(const Finding &finding)
{
    return fmt::format("[{}] {}{}", static_cast<int>(finding.kind),
                       findingText(finding.kind).severity == notice ? "（参考）" : "", finding.sentence);
}

std::string jsonOf(const Findings &findings, Details details)
{
    nlohmann::ordered_json list = nlohmann::ordered_json::array();
    for (const Finding &finding : findings) {
        const FindingText &text = findingText(finding.kind);
        nlohmann::ordered_json entry{{"number", static_cast<int>(finding.kind)},
                                     {"severity", nameOf(text.severity)},
                                     {"title", text.title},
                                     {"subject", finding.subject}};
        if (details == Details::everything) entry["text"] = finding.sentence;
        list.push_back(std::move(entry));
    }
    const nlohmann::ordered_json whole{
        {"findings", std::move(list)}, {"faults", countOf(findings, fault)}, {"notices", countOf(findings, notice)}};
    // A value of the site may be malformed UTF-8.
    return whole.dump(2, ' ', false, nlohmann::ordered_json::error_handler_t::replace);
}

} // namespace inin::site
