#pragma once

#include "printing/print_form.h"
#include "support/fake_platform.h"
#include "support/list_answers.h"

#include <string>
#include <utility>
#include <vector>

namespace inin {

/// The columns of one patient that differ from the ordinary one.
using Changes = std::vector<std::pair<std::string, Variant>>;

/// An extraction's answer: one ordinary patient for each entry, changed as it says.
[[nodiscard]] FakeResult patients(const std::vector<Changes> &changes);
/// A day helper's answer: the patient's visits, the last one first.
[[nodiscard]] FakeResult visits(const std::string &column, const std::vector<Variant> &values);

/// The conditions screen in a fake world. The condition fields say: target month May 2024, head office, whole month,
/// automatic signature date, no filter. The branch
/// has two staff members and two insurance kinds, and no head office.
struct PrintFixture {
    PrintFixture();
    FakeWorld world;
    frmPrintInin form{world.app};

    /// Marks the screen for planned data of May 2024, so that a run fills the condition fields alike.
    void markScreen();
    /// Each statement with this part gets this answer.
    void answerTo(const char *statement, FakeResult result);
    /// The next statement gets this answer.
    void answer(FakeResult result) { world.database.results.push_back(std::move(result)); }
    /// The first statement of the run that was asked, without the log's own words.
    [[nodiscard]] std::string firstSql() const;
    [[nodiscard]] const ShownBox &onlyBox() const;
    /// Texts of all boxes.
    [[nodiscard]] std::vector<std::string> boxTexts() const;
};

/// The central box as the person sees it.
[[nodiscard]] ShownBox centralBox(const std::string &number, const std::string &description,
                                  const std::string &procedure);

} // namespace inin
