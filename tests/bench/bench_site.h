#pragma once

#include "printing/print_form.h"
#include "support/temp_folder.h"

#include <filesystem>
#include <memory>
#include <string>

namespace inin::bench {

inline constexpr int kYear = 2024;
inline constexpr unsigned kMonth = 5;

/// A demo site in a folder of its own, gone at the end.
class BenchSite {
public:
    /// 0 staff: as many as so many patients need.
    explicit BenchSite(std::int64_t patients, std::int64_t staff = 0);
    [[nodiscard]] const std::filesystem::path &folder() const { return m_folder.folder(); }

private:
    TempFolder m_folder;
};

/// The month's extraction for the head office, as the screen asks for it.
[[nodiscard]] std::string monthStatement();

/// The conditions screen on a site, with the system's own files and the embedded database and without a window. A box
/// ends the benchmark: it means that the figure would be of a failure. The conditions are the month, planned data,
/// head office, month start to month end, automatic signature.
class BenchScreen {
public:
    /// Without a database of its own it uses the embedded one of the folder.
    explicit BenchScreen(const std::filesystem::path &folder, std::unique_ptr<Database> database = nullptr);
    ~BenchScreen();
    BenchScreen(const BenchScreen &) = delete;
    BenchScreen &operator=(const BenchScreen &) = delete;
    [[nodiscard]] frmPrintInin &form();
    [[nodiscard]] App &app();
    /// One extraction of the month and its CSV. Prints the number of letters.
    void writeMonth();

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace inin::bench
