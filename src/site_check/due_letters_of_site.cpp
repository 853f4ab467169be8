#include "site_check/due_letters_of_site.h"

#include "adapters/native/native_platform.h"
#include "due_letters/due_letters_reader.h"
#include "runtime/runtime_error.h"
#include "site_check/site_settings.h"
#include "system/file_path.h"

#include <fmt/format.h>

namespace inin::site {

namespace {

/// A command that needs a setting stops at its first finding.
template <class Value> const Value &required(const std::optional<Value> &value, const Findings &findings)
{
    if (value) return *value;
    throw RuntimeError(error_number::invalidCall, findings.front().sentence);
}

SiteDatabase openRequired(const std::filesystem::path &folder, const std::string &connection)
try {
    return openSiteDatabase(folder, connection);
} catch (const RuntimeError &error) {
    throw RuntimeError(error.number(), fmt::format("データベースに接続できません。（{}）", error.description()));
}

} // namespace

std::vector<due::Answer> dueLettersOfSite(const std::filesystem::path &folder, const due::Conditions &conditions)
{
    Findings findings;
    const auto settings = readSettings(folder, findings);
    const auto branch = branchOf(required(settings, findings), findings);
    const Branch &known = required(branch, findings);
    const auto connection = connectionText(folder, findings);
    const SiteDatabase site = openRequired(folder, required(connection, findings));
    const Regional regional = makeSystemLocale()->regional();
    return due::dueLetters({*site.database, *site.connection, known.code, known.subCode, regional}, conditions);
}

} // namespace inin::site
