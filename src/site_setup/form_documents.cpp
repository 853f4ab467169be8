#include "site_setup/form_documents.h"

#include "demo_site/site_maker.h"
#include "runtime/runtime_error.h"
#include "site_check/site_settings.h"
#include "system/file_path.h"
#include "system/whole_file.h"

#include <fmt/format.h>

#include <optional>

namespace inin::site {

namespace {

namespace fs = std::filesystem;

/// The folder that the suite takes form documents from.
fs::path formFolder(const fs::path &site)
{
    Findings findings;
    if (const auto settings = readSettings(site, findings))
        if (const auto value = valueOf(*settings, "SYSTEM_SYS", findings)) return joined(site, *value);
    throw RuntimeError(error_number::pathNotFound, findings.front().sentence);
}

/// Renames a document to the first free name: "委任状23.wfd.1", "委任状23.wfd.2", …
std::string keepCopy(const fs::path &document)
{
    for (int number = 1;; ++number) {
        fs::path copy = document;
        copy += fmt::format(".{}", number);
        std::error_code error;
        if (fs::exists(copy, error)) continue;
        fs::rename(document, copy, error);
        if (!error) return textOf(copy.filename());
        throw RuntimeError(error_number::pathAccess,
                           fmt::format("ファイル「{}」の名前を変更できません。", textOf(document)));
    }
}

FileReport installForm(const fs::path &document, std::string_view bytes, Existing existing)
{
    FileReport report{textOf(document.filename())};
    if (const std::optional<std::string> old = tryReadWholeFile(document)) {
        report.done = *old == bytes                ? FileReport::Done::same
                      : existing == Existing::keep ? FileReport::Done::kept
                                                   : FileReport::Done::replaced;
        if (report.done != FileReport::Done::replaced) return report;
        report.copy = keepCopy(document);
    }
    writeWholeFile(document, bytes, NewFile::byTheMask);
    return report;
}

} // namespace

std::string sentenceOf(const FileReport &report)
{
    switch (report.done) {
    case FileReport::Done::written:
        return fmt::format("「{}」を書き込みました。", report.name);
    case FileReport::Done::same:
        return fmt::format("「{}」は最新です。", report.name);
    case FileReport::Done::kept:
        return fmt::format("「{}」はすでにあるので、そのままにしました。", report.name);
    case FileReport::Done::replaced:
        return fmt::format("「{}」を置き換えました。前のファイルは「{}」です。", report.name, report.copy);
    }
    return {};
}

std::vector<FileReport> installForms(const fs::path &site, Existing existing)
{
    const fs::path folder = formFolder(site);
    std::error_code error;
    fs::create_directories(folder, error); // writeWholeFile() reports a failure
    std::vector<FileReport> reports;
    for (const DemoForm &form : demoForms())
        reports.push_back(installForm(folder / pathOf(form.name), form.text(), existing));
    return reports;
}

} // namespace inin::site
