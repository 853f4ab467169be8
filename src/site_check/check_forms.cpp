#include "site_check/site_check.h"

#include "printing/csv_output.h"
#include "runtime/runtime_error.h"
#include "system/file_path.h"
#include "viewer/form/cover_columns.h"
#include "viewer/form/svg_reader.h"

#include <fmt/format.h>

#include <algorithm>
#include <set>
#include <string>
#include <variant>
#include <vector>

namespace inin::site {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kForms[] = {"委任状37_01.wfd", "委任状23.wfd", "委任状37_高松市.wfd"};

/// What the rows that a form shows contain.
struct Rows {
    const char *name;
    std::vector<std::string> (*columns)(const viewer::FormDocument &form);
};
constexpr Rows kLetters = {"委任状", [](const viewer::FormDocument &) {
                               std::vector<std::string> columns(letterColumnTitles().begin(),
                                                                letterColumnTitles().end());
                               columns.emplace_back(viewer::kLetterCodeColumn);
                               return columns;
                           }};
constexpr Rows kCovers = {"表紙", viewer::coverColumns};

/// The columns that a form names and the rows lack.
std::set<std::string> unknownColumns(const viewer::FormDocument &form, const Rows &rows)
{
    const std::vector<std::string> columns = rows.columns(form);
    std::set<std::string> unknown = viewer::namedColumns(form);
    for (const std::string &column : columns) unknown.erase(column);
    return unknown;
}

void checkForm(const std::string &bytes, const std::string &form, const Rows &rows, const std::string &subject,
               Findings &findings)
try {
    if (!bytes.empty() && !viewer::looksLikeXml(bytes)) {
        findings.push_back({FindingKind::foreignForm, subject,
                            fmt::format("帳票「{}」は SVG ではありません。formviewer では一覧になります。", form)});
        return;
    }
    for (const std::string &column : unknownColumns(viewer::readSvg(bytes), rows))
        findings.push_back({FindingKind::unknownFormColumn, subject,
                            fmt::format("帳票「{}」の列「{}」は{}にないので、開けません。", form, column, rows.name)});
} catch (const RuntimeError &error) {
    findings.push_back({FindingKind::unreadableForm, subject,
                        fmt::format("帳票「{}」を読み込めません。（{}）", form, error.description())});
}

} // namespace

/// An entry in "帳票Format.ini" replaces all three form documents of letters.
void checkForms(const fs::path &folder, const Settings &settings, Findings &findings)
{
    const auto sys = settings.find("SYSTEM_SYS");
    if (sys == settings.end()) return;
    const std::string ownForm = formOfFormatFile(folder, settings);
    std::vector<std::string> forms(std::begin(kForms), std::end(kForms));
    if (!ownForm.empty()) forms = {ownForm};
    for (const std::string &form : forms) {
        const std::string subject = ownForm.empty() ? form : "帳票Format.ini";
        if (const auto bytes = readSiteFile(joined(folder, sys->second) / pathOf(form)))
            checkForm(*bytes, form, kLetters, subject, findings);
        else
            findings.push_back({FindingKind::missingForm, subject,
                                fmt::format("帳票「{}」がフォルダー「{}」にありません。", form, sys->second)});
    }
    // Without a cover of its own, a site has the built-in one.
    const std::string cover = viewer::kCoverFormName;
    if (const auto bytes = readSiteFile(joined(folder, sys->second) / pathOf(cover)))
        checkForm(*bytes, cover, kCovers, cover, findings);
}

} // namespace inin::site
