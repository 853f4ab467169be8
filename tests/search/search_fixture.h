#pragma once

#include "platform/key_codes.h"
#include "screen/form.h"
#include "search/patient_search_form.h"
#include "search/staff_search_form.h"
#include "support/fake_platform.h"

#include <cstddef>
#include <doctest/doctest.h>

#include <string>
#include <vector>

namespace inin {

/// Parts by which the fake database identifies a statement.
inline constexpr const char *kStaffList = "cNameRyaku  FROM STAFF";
inline constexpr const char *kStaffFound = ")staff";
inline constexpr const char *kStaffCheck = "SELECT cName, iChusiFlg";
inline constexpr const char *kPatientsFound = "FROM RIYOUSHA  WHERE nIDNo >= 0";

/// A fake world whose database has the staff 11 and 12 and the patients 21, 22 and 23 of branch 1, 2.
struct SearchFixture {
    SearchFixture();
    FakeWorld world;

    /// From now on the database returns this result for statements with that part.
    void answer(const char *part, const FakeResult &result);
    /// The statements sent so far.
    [[nodiscard]] std::vector<std::string> statements() const;
    [[nodiscard]] std::vector<std::string> boxTexts() const;
    /// The number of occurrences of a word in the log of the windows.
    [[nodiscard]] std::ptrdiff_t count(const std::string &word) const;
};

[[nodiscard]] FakeResult staffRows(const std::vector<std::vector<Variant>> &rows);   ///< nIDNo, cName, cNameKana
[[nodiscard]] FakeResult patientRows(const std::vector<std::vector<Variant>> &rows); ///< in the grid's order of columns
/// A statement that fails with a provider's error.
[[nodiscard]] FakeResult failure();

/// The cells of a row as texts.
[[nodiscard]] std::vector<std::string> rowTexts(const Grid &grid, std::int32_t row);
/// Loads the window and activates it once, as a show does.
void open(Form &window);
void press(Button &button);
void press(const MenuEntry &entry);

/// The differences between the windows for tests of both.
struct PatientList {
    using Window = frm患者検索;
    static constexpr const char *found = kPatientsFound;
    static constexpr const char *noRowText = "該当する利用者データがありません。";
    static constexpr const char *noStaffText = "該当する利用者データがありません。";
    static constexpr std::int32_t numbers[] = {21, 22, 23};
    static constexpr std::int16_t numberColumn = 2;
    static FakeResult rows(const std::vector<std::vector<Variant>> &rows) { return patientRows(rows); }
    static FakeResult nullRow() { return patientRows({std::vector<Variant>(9, Null{})}); }
    static void init(Window &window, std::int32_t nSeledCode) { REQUIRE(window.iInit(nSeledCode) == 0); }
};
struct StaffList {
    using Window = frm施術者検索;
    static constexpr const char *found = kStaffFound;
    static constexpr const char *noRowText = "該当する施術者データがありません。";
    static constexpr const char *noStaffText = "該当する患者データがありません。";
    static constexpr std::int32_t numbers[] = {11, 12};
    static constexpr std::int16_t numberColumn = 1;
    static FakeResult rows(const std::vector<std::vector<Variant>> &rows) { return staffRows(rows); }
    static FakeResult nullRow() { return staffRows({std::vector<Variant>(3, Null{})}); }
    static void init(Window &window, std::int32_t nSeledCode) { REQUIRE(window.iInit(nSeledCode, 0, -1) == 0); }
};

/// One of the windows, ready to be opened, or opened with its first list.
template <class List> struct ListFixture : SearchFixture {
    typename List::Window window{world.app};
    void init(std::int32_t nSeledCode = 0) { List::init(window, nSeledCode); }
    void opened(std::int32_t nSeledCode = 0)
    {
        init(nSeledCode);
        open(window);
        REQUIRE(window.isLoaded());
        REQUIRE(boxTexts().empty());
    }
};

} // namespace inin
