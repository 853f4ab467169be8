#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace inin::site {

/// What a check finds. The values are the numbers that a report shows: they never change, and none is used again.
/// docs/installer.md lists them.
enum class FindingKind {
    noFolder = 101,
    noSettings = 102,
    noConnectionFile = 103,
    unreadableSettings = 104,
    notCodePage932 = 105,
    missingKey = 106,
    noLeadingBackslash = 107,
    missingFolder = 108,
    otherTemporaryFolder = 109,
    missingWallpaper = 110,
    wallpaperIsNoPicture = 111,
    wallpaperNotPaintable = 112,
    badMonths = 113,
    badBranch = 114,
    noPrintSettings = 115,
    notWritable = 116,
    missingProgram = 201,
    notExecutable = 202,
    noMerger = 203,
    onlyAsAdministrator = 204,
    missingForm = 301,
    unreadableForm = 302,
    unknownFormColumn = 303,
    foreignForm = 304,
    noConnectionString = 401,
    longConnectionString = 402,
    cannotConnect = 403,
    damagedDatabase = 404,
    missingTable = 405,
    missingColumn = 406,
    onlyFor32Bits = 407,
    unreadableTable = 408,
    noHeadOffice = 501,
    severalHeadOffices = 502,
    noGroupCompany = 503,
    severalGroupCompanies = 504,
    missingAgent = 505,
    noStaff = 506,
    breakingValue = 507,
    moreBreakingValues = 508,
    demoMissingAgent = 509,
    otherCodePage = 601,
    unreadableShortDate = 602,
    virtualStoreCopies = 603,
};

enum class Severity {
    notice,    ///< normal in some sites; does not count
    fault,     ///< to be corrected
    unchecked, ///< nothing could be checked
};

struct FindingText {
    FindingKind kind;
    Severity severity;
    std::string_view title; ///< contains nothing of the site
};
/// All kinds, in the order of their numbers.
[[nodiscard]] std::span<const FindingText> findingTexts();
[[nodiscard]] const FindingText &findingText(FindingKind kind);

struct Finding {
    FindingKind kind;
    /// The key, file, table or column, by a name that is the same in every site.
    std::string subject;
    /// One sentence, which may contain names and values of the site.
    std::string sentence;
    friend bool operator==(const Finding &, const Finding &) = default;
};

/// Empty if there is no problem.
using Findings = std::vector<Finding>;

[[nodiscard]] std::size_t countOf(const Findings &findings, Severity severity);
/// "[405] テーブル「HOKEN」がありません。"
[[nodiscard]] std::string lineOf(const Finding &finding);

enum class Details {
    everything,
    withoutSentences, ///< nothing that could name a person, a server or a password
};
/// The findings as a JSON object.
[[nodiscard]] std::string jsonOf(const Findings &findings, Details details);

} // namespace inin::site
