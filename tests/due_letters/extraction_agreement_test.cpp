// The answers agree with the print run: on random databases and under random conditions, the letters of each patient
// are those that the extraction writes.

#include "adapters/sqlite/sqlite_database.h"
#include "demo_site/scratch_site.h"
#include "due_letters/due_letters_reader.h"
#include "printing/print_form.h"
#include "support/fake_platform.h"
#include "system/file_path.h"

#include <doctest/doctest.h>
#include <fmt/format.h>

#include <map>
#include <random>

using namespace inin;
using namespace inin::test;

namespace {

using Letters = std::map<std::int32_t, std::int64_t>;

/// Reproducible on every system, unlike the distributions of the standard library.
class Random {
public:
    explicit Random(unsigned seed) : m_engine(seed) {}
    /// From 0 to count - 1.
    std::int32_t below(std::int32_t count)
    {
        return static_cast<std::int32_t>(m_engine() % static_cast<unsigned>(count));
    }
    bool oneIn(std::int32_t count) { return below(count) == 0; }

private:
    std::mt19937 m_engine;
};

/// Changes to a demo database that add each reason for no letter and for several letters.
std::vector<std::string> disturbances(Random &random)
{
    const auto some = [&random](const char *column) { return fmt::format("{} % {} = 0", column, 3 + random.below(9)); };
    std::vector<std::string> changes{
        "UPDATE RIYOUSHA SET cName = 'P' || nIDNo", // the letters of the run have no number
        "DELETE FROM HOKENJA WHERE " + some("rowid"),
        "UPDATE RIYOUSHA SET cHokenNo = cHokenNo || ' ' WHERE " + some("nIDNo"),
        "UPDATE RIYOUSHA SET cHokenNo = NULL WHERE " + some("nIDNo"),
        "UPDATE RIYOUSHA SET tExpireDay = '2024-04-30 00:00:00' WHERE " + some("nIDNo"),
        "UPDATE RIYOUSHA SET nTantou = NULL WHERE " + some("nIDNo"),
        "DELETE FROM SCHEDULE WHERE " + some("nIDRiyoushaNo"),
        "DELETE FROM JISSEKI WHERE " + some("nRiyoushaIDNo"),
        "INSERT INTO SCHEDULE SELECT * FROM SCHEDULE WHERE " + some("rowid"),
        "INSERT INTO JISSEKI SELECT * FROM JISSEKI WHERE " + some("rowid"),
        "INSERT INTO SCHEDULE SELECT iKyotenCd, iKyotenEb, nIDRiyoushaNo, nIDStaffNo, nDate / 100 * 100 FROM SCHEDULE "
        "WHERE " +
            some("rowid"),
        "INSERT INTO SCHEDULE SELECT iKyotenCd, iKyotenEb + 1, nIDRiyoushaNo, nIDStaffNo, nDate FROM SCHEDULE WHERE " +
            some("rowid"),
    };
    if (random.oneIn(2))
        changes.emplace_back("INSERT INTO HOKENJA SELECT cIDno || ' ', cName, cSubAddress, iType FROM HOKENJA");
    if (random.oneIn(2)) changes.emplace_back("UPDATE CORP SET iType = 3 WHERE nIDNo = 12");
    if (random.oneIn(2)) changes.emplace_back("UPDATE CORP SET iType = 0 WHERE nIDNo IN (13, 14)");
    if (random.oneIn(4)) changes.emplace_back("DELETE FROM CORP WHERE iType = 0");
    return changes;
}

/// A demo database with such changes, and a conditions screen on it.
struct RandomSite {
    TempFolder folder;
    FakeWorld fake;
    std::unique_ptr<Database> database = sqlite::makeSqliteDatabase([](const std::string &path) { return path; });
    std::unique_ptr<Connection> connection = database->newConnection();
    Platform platform{fake.boxes,     fake.windows, *database,   fake.profile,   fake.files,
                      fake.processes, fake.clock,   fake.locale, fake.automation};
    App app{platform};

    explicit RandomSite(Random &random)
    {
        site::makeSite(
            folder.folder(),
            {60 + random.below(60), static_cast<std::uint64_t>(random.below(1000)), std::chrono::year{2024} / 5},
            site::Overwrite::onlyOwnFolder);
        for (const std::string &change : disturbances(random)) execute(folder.folder() / "demo.db", change);
        const std::string text = "Provider=SQLite;Data Source=" + folder / "demo.db";
        fake.files.putText("C:\\SUITE\\adodb.ini", "[接続情報]\n接続情報=" + text + "\n");
        connection->Open(text, "", "", 0);
        app.gcsAppPath = fake.app.gcsAppPath;
        app.iKyotenCd = 1;
        app.iKyotenEb = 1;
    }

    [[nodiscard]] due::Source source() { return {*database, *connection, app.iKyotenCd, app.iKyotenEb, app.regional}; }
};

due::Conditions randomConditions(Random &random)
{
    constexpr due::Visits kVisits[] = {due::Visits::planned, due::Visits::planned, due::Visits::actual,
                                       due::Visits::actual, due::Visits::ignored};
    due::Conditions conditions;
    conditions.visits = kVisits[random.below(5)];
    conditions.year = 2024;
    conditions.month = 4 + random.below(3);
    if (conditions.visits != due::Visits::ignored && random.oneIn(2)) conditions.lastDay = 31 - random.below(9);
    if (conditions.month != 5 && conditions.lastDay == 31) conditions.lastDay = 30;
    conditions.trustee = random.oneIn(2) ? due::Trustee::agent : due::Trustee::headOffice;
    if (random.oneIn(4)) conditions.patient = 1 + random.below(130);
    if (random.oneIn(3)) conditions.staff = 1 + random.below(12);
    if (random.oneIn(3)) conditions.insuranceKind = 1 + random.below(8);
    conditions.includesEnded = random.oneIn(2);
    return conditions;
}

std::int16_t extract(frmPrintInin &form, const due::Conditions &conditions)
{
    if (conditions.visits == due::Visits::ignored) return form.iGetKanjaDataNoPeriod();
    const bool isPlanned = conditions.visits == due::Visits::planned;
    if (conditions.lastDay) return isPlanned ? form.iGetKanjaDataDay() : form.iGetKanjaDataDay_Jisseki();
    return isPlanned ? form.iGetKanjaDataMonth() : form.iGetKanjaDataMonth_Jisseki();
}

/// The letters of each patient in the rows of a print run.
Letters lettersOfRun(RandomSite &site, const due::Conditions &conditions)
{
    frmPrintInin form(site.app);
    form.csTargetDate = fmt::format("2024/{:02}/{:02}", conditions.month, conditions.lastDay.value_or(1));
    form.iDspPeriodKind = 1;
    form.iTrustKind = conditions.trustee == due::Trustee::headOffice ? 1 : 2;
    form.iHokenIndex = static_cast<std::int16_t>(conditions.insuranceKind);
    form.nStaffNo = conditions.staff;
    form.nKanjaNo = conditions.patient;
    form.iExpireKind = conditions.includesEnded ? 1 : 0;
    REQUIRE(extract(form, conditions) == 0);
    Letters letters;
    for (std::int16_t i = 0; i < form.iRowCount; ++i)
        ++letters[std::stoi(std::string(form.aIninRow.at(static_cast<std::size_t>(i)).利用者氏名.view().substr(1)))];
    return letters;
}

} // namespace

TEST_CASE("on random databases and under random conditions the letters of each patient are those of the print run")
{
    constexpr int kDatabases = 8, kConditions = 40;
    std::map<due::Obstacle, int> obstacles;
    std::map<due::Repetition, int> repetitions;
    Random random(20240501);
    for (int i = 0; i < kDatabases; ++i) {
        RandomSite site(random);
        for (int j = 0; j < kConditions; ++j) {
            const due::Conditions conditions = randomConditions(random);
            CAPTURE(i);
            CAPTURE(j);
            Letters answered;
            for (const due::Answer &answer : due::dueLetters(site.source(), conditions)) {
                if (answer.letters > 0) answered[answer.number] += answer.letters;
                CHECK(answer.obstacles.empty() == (answer.letters > 0));
                for (const due::Obstacle obstacle : answer.obstacles) ++obstacles[obstacle];
                for (const due::Repeated &repeated : answer.repeated) ++repetitions[repeated.repetition];
            }
            CHECK(answered == lettersOfRun(site, conditions));
        }
    }
    // Every reason occurred, except two side rows of a patient, which the key of the table excludes.
    CHECK(obstacles.size() == 9);
    CHECK(repetitions.size() == 4);
}
