#include "site_check/site_check.h"

#include "adapters/native/native_platform.h"
#include "demo_site/site_maker.h"
#include "system/file_path.h"

#include <fmt/format.h>

namespace inin::site {

namespace {

struct Program {
    std::string_view name;
    std::string_view consequence;
    bool isMerger = false; ///< the screen never starts it
};

constexpr Program kPrograms[] = {
    {kMenu, "終わるときにメニューに戻れません"},
    {kFormTools[0], "「印刷」を押しても何も起こりません"},
    {kFormTools[1], "「ﾌﾟﾚﾋﾞｭｰ」を押しても何も起こりません"},
    {kFormTools[2], "帳票を結合できません", true},
};

} // namespace

/// The program starts these without looking at the result: nothing happens on the screen if one is missing.
void checkPrograms(const std::filesystem::path &folder, Findings &findings)
{
    for (const Program &program : kPrograms) {
        if (startsOnlyAsAdministrator(textOf(folder), std::string(program.name)))
            findings.push_back(
                {FindingKind::onlyAsAdministrator, std::string(program.name),
                 fmt::format("プログラム「{}」に「管理者としてこのプログラムを実行する」の設定があるので、{}（"
                             "「プロパティ」の「互換性」で設定を外してください）。",
                             program.name, program.consequence)});
        if (canStart(textOf(folder), std::string(program.name))) continue;
        const bool isPresent = isThere(folder / program.name);
        const FindingKind kind = program.isMerger ? FindingKind::noMerger
                                 : isPresent      ? FindingKind::notExecutable
                                                  : FindingKind::missingProgram;
        findings.push_back({kind, std::string(program.name),
                            fmt::format("プログラム「{}」{}ので、{}。", program.name,
                                        isPresent ? "を実行できない" : "がない", program.consequence)});
    }
}

} // namespace inin::site
