#include "adapters/odbc/diagnostics.h"

#include "runtime/runtime_error.h"
#include "runtime/text.h"
#include "runtime/utf8.h"

#include <algorithm>

namespace inin::odbc {

namespace {

struct NativeRow {
    std::int32_t native; ///< SQL Server's message number
    std::int32_t number;
};
constexpr NativeRow kNatives[] = {
    {208, ado_error::noSuchTable}, {18452, ado_error::logInRefused}, {18456, ado_error::logInRefused},
    {515, ado_error::constraint},  {547, ado_error::constraint},     {2601, ado_error::constraint},
    {2627, ado_error::constraint},
};

struct StateRow {
    std::string_view start; ///< prefix of the SQL state; the first matching row applies
    std::int32_t number;
};
constexpr StateRow kStates[] = {
    {"42S02", ado_error::noSuchTable},  {"42P01", ado_error::noSuchTable},  {"S0002", ado_error::noSuchTable},
    {"28", ado_error::logInRefused},    {"HYT", ado_error::timedOut},       {"S1T00", ado_error::timedOut},
    {"57014", ado_error::timedOut},     {"23", ado_error::constraint},      {"07", ado_error::faultyStatement},
    {"21", ado_error::faultyStatement}, {"22", ado_error::faultyStatement}, {"37", ado_error::faultyStatement},
    {"42", ado_error::faultyStatement}, {"S0", ado_error::faultyStatement}, {"HY019", ado_error::faultyStatement},
};

/// Some servers and drivers report a missing table with the SQL state of any faulty statement, and a refused log-in
/// with that of an unreachable server. The message text distinguishes them.
struct WordsRow {
    std::string_view first;
    std::string_view second; ///< follows the first, may be empty
    std::int32_t number;
};
constexpr WordsRow kWords[] = {
    {"Invalid object name", "", ado_error::noSuchTable},
    {"column \"", "\" does not exist", ado_error::faultyStatement}, // the relation itself exists
    {"relation \"", "\" does not exist", ado_error::noSuchTable},
    {"no such table", "", ado_error::noSuchTable},
    {"Login failed for user", "", ado_error::logInRefused},
    {"password authentication failed", "", ado_error::logInRefused},
    {"Couldn't parse SQL", "", ado_error::faultyStatement}, // from the driver for Jet files, which reports no SQL state
};

std::int32_t numberOf(const DiagnosticRecord &record, std::string_view words)
{
    for (const NativeRow &row : kNatives)
        if (row.native == record.native) return row.number;
    for (const WordsRow &row : kWords) {
        const std::size_t at = words.find(row.first);
        if (at != std::string_view::npos && words.find(row.second, at) != std::string_view::npos) return row.number;
    }
    for (const StateRow &row : kStates)
        if (record.sqlState.starts_with(row.start)) return row.number;
    return ado_error::unspecified;
}

bool isWordByte(char c)
{
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || !isAscii(c);
}

/// A short secret is masked only as a whole word; otherwise ordinary words would be masked as well.
void hide(std::string &text, const std::string &secret)
{
    constexpr std::size_t kShort = 4;
    constexpr std::string_view kStars = "***";
    for (std::size_t at = text.find(secret); at != std::string::npos; at = text.find(secret, at)) {
        const std::size_t end = at + secret.size();
        const bool isInside = (at > 0 && isWordByte(text[at - 1])) || (end < text.size() && isWordByte(text[end]));
        if (secret.size() < kShort && isInside) {
            ++at;
            continue;
        }
        text.replace(at, secret.size(), kStars);
        at += kStars.size();
    }
}

constexpr std::string_view kNoReason = "the driver failed and told no reason";

/// FreeTDS adds this record to every failed log-in; it uses the second text for a broken connection.
constexpr std::string_view kNoConnection = "Unable to connect to data source";
constexpr std::string_view kUnknown = "Unknown error";

/// The text of the entry at `chief`, followed by the additional texts of the other entries in parentheses.
std::string logInText(const std::vector<ProviderError> &errors, std::size_t chief)
{
    std::vector<std::string_view> texts{errors[chief].Description, kNoConnection, ""};
    std::string further;
    for (const ProviderError &error : errors) {
        if (std::ranges::find(texts, error.Description) != texts.end()) continue;
        further.append(further.empty() ? " (" : "; ").append(error.Description);
        texts.emplace_back(error.Description);
    }
    return errors[chief].Description + further + (further.empty() ? "" : ")");
}

std::string lostConnectionText(std::string_view driverText)
{
    std::string text = "the connection to the server was lost";
    if (driverText.empty() || driverText == kUnknown || driverText == kNoReason) return text;
    return text.append(" (").append(driverText).append(")");
}

} // namespace

ProviderError providerErrorOf(const DiagnosticRecord &record, const std::vector<std::string> &secrets)
{
    ProviderError error{0, {}, "ODBC", record.sqlState, record.native};
    std::string_view words = record.message;
    while (words.starts_with('[')) {
        const std::size_t end = words.find(']');
        if (end == std::string_view::npos) break;
        error.Source = words.substr(1, end - 1);
        words.remove_prefix(end + 1);
        while (words.starts_with(' ')) words.remove_prefix(1);
    }
    while (!words.empty() && (words.back() == '\r' || words.back() == '\n')) words.remove_suffix(1);
    error.Number = numberOf(record, words);
    error.Description = words;
    for (const std::string &secret : secrets)
        if (!secret.empty()) hide(error.Description, secret);
    return error;
}

ProviderError ownError(std::int32_t number, std::string_view sqlState, std::string description)
{
    return {number, std::move(description), "ODBC", std::string(sqlState), 0};
}

bool isFailureRecord(const std::vector<DiagnosticRecord> &records)
{
    return !std::ranges::all_of(records, &DiagnosticRecord::isWarning);
}

bool tellsLostConnection(const std::vector<DiagnosticRecord> &records)
{
    return std::ranges::any_of(records, [](const DiagnosticRecord &record) {
        return record.sqlState == "08S01" || record.sqlState == "08003" || record.sqlState == "08007" ||
               record.sqlState.starts_with("57P");
    });
}

void raiseRecords(std::vector<ProviderError> &errors, const std::vector<DiagnosticRecord> &records,
                  const std::vector<std::string> &secrets, Failure failure)
{
    errors.clear();
    for (const DiagnosticRecord &record : records) errors.push_back(providerErrorOf(record, secrets));
    if (errors.empty()) errors.push_back(ownError(ado_error::unspecified, "HY000", std::string(kNoReason)));
    const auto first = std::ranges::find_if_not(records, &DiagnosticRecord::isWarning);
    const std::size_t chief = first == records.end() ? 0 : static_cast<std::size_t>(first - records.begin());
    ProviderError &error = errors[chief];
    // A timeout that also broke the connection is reported as a timeout.
    if (failure == Failure::lostConnection && error.Number == ado_error::unspecified)
        error.Description = lostConnectionText(error.Description);
    throw RuntimeError(error.Number, failure == Failure::logIn ? logInText(errors, chief) : error.Description);
}

} // namespace inin::odbc
