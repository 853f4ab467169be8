#pragma once

#include "printing/print_form.h"
#include "support/fake_platform.h"
#include "support/list_answers.h"

#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace inin {

/// For the messages of failed checks.
inline std::ostream &operator<<(std::ostream &stream, const SharedText &text)
{
    return stream << text.view();
}

/// The columns of one patient that differ from the default patient.
using Changes = std::vector<std::pair<std::string, Variant>>;

/// An extraction's result: one default patient for each entry, with these changes.
[[nodiscard]] FakeResult patients(const std::vector<Changes> &changes);
/// A day helper's result: the patient's visits, the last one first.
[[nodiscard]] FakeResult visits(const std::string &column, const std::vector<Variant> &values);

/// The conditions screen in a fake world. The condition fields are: target month May 2024, head office, whole month,
/// automatic signature date, no filter. The branch has two staff members and two insurance kinds, and no head office.
struct PrintFixture {
    PrintFixture();
    FakeWorld world;
    frmPrintInin form{world.app};

    /// Sets the screen to planned data of May 2024, so that a run sets the condition fields to the same values.
    void markScreen();
    /// Each statement that contains this part gets this result.
    void answerTo(const char *statement, FakeResult result);
    /// The next statement gets this result.
    void answer(FakeResult result) { world.database.results.push_back(std::move(result)); }
    /// The first statement of the run, without the prefix of the log.
    [[nodiscard]] std::string firstSql() const;
    [[nodiscard]] const ShownBox &onlyBox() const;
    /// Texts of all boxes.
    [[nodiscard]] std::vector<std::string> boxTexts() const;
};

/// The central box as shown to the operator.
[[nodiscard]] ShownBox centralBox(const std::string &number, const std::string &description,
                                  const std::string &procedure);

} // namespace inin
