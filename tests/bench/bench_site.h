#pragma once

#include "printing/print_form.h"
#include "support/temp_folder.h"

#include <filesystem>
#include <memory>
#include <string>

namespace inin::bench {

inline constexpr int kYear = 2024;
inline constexpr unsigned kMonth = 5;

/// A demo site in a temporary folder.
class BenchSite {
public:
    /// 0 staff: derived from the number of patients.
    explicit BenchSite(std::int64_t patients, std::int64_t staff = 0);
    [[nodiscard]] const std::filesystem::path &folder() const { return m_folder.folder(); }

private:
    TempFolder m_folder;
};

/// The month's extraction for the head office, as the screen sends it.
[[nodiscard]] std::string monthStatement();

/// The conditions screen on a site, with the system's files and the embedded database but without a window. A box
/// aborts the benchmark, because it means a failure. The conditions are month, planned data, head office, start to end
/// of the month, automatic signature.
class BenchScreen {
public:
    /// Uses the embedded database of the folder unless another one is passed.
    explicit BenchScreen(const std::filesystem::path &folder, std::unique_ptr<Database> database = nullptr);
    ~BenchScreen();
    BenchScreen(const BenchScreen &) = delete;
    BenchScreen &operator=(const BenchScreen &) = delete;
    [[nodiscard]] frmPrintInin &form();
    [[nodiscard]] App &app();
    /// Extracts the month once and writes its CSV. Prints the number of letters.
    void writeMonth();

private:
    struct Parts;
    std::unique_ptr<Parts> m_parts;
};

} // namespace inin::bench
