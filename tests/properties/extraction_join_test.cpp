// The five extractions on the embedded database against nested loops over the same rows.

#include "printing/print_form.h"
#include "properties/property.h"
#include "support/embedded_world.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <optional>

using namespace inin;
using namespace inin::test;

namespace {

using Fields = std::vector<std::string>;
using MaybeNumber = std::optional<int>;

/// Two texts of one group are equal for the database: it ignores case, width and trailing blanks.
struct InsurerNumber {
    const char *text;
    int group;
};
constexpr InsurerNumber kInsurerNumbers[] = {{"A1", 0}, {"a1 ", 0}, {"B2", 1}, {"Ｂ２", 1}, {"C3", 2}};

struct Insurer {
    InsurerNumber number{};
    std::string name;
    MaybeNumber kind;
};

struct Patient {
    bool isOwnBranch = true;
    int number = 0;
    std::string name;
    std::optional<InsurerNumber> insurer;
    MaybeNumber agent, mainStaff, insuranceKind;
    bool hasEnded = false;
};

struct SideRow {
    bool isOwnBranch = true;
    int patient = 0;
    MaybeNumber isGroupBilled;
};

struct Company {
    bool isOwnBranch = true;
    int number = 0, kind = 0;
    std::string name;
    MaybeNumber bankKind, officeKind, accountKind;
};

struct Visit {
    bool isOwnBranch = true;
    int patient = 0;
    MaybeNumber staff;
    int month = 0, day = 0; ///< of 2024; a planned visit may have a day that no month has
    int hour = 0;           ///< of an actual visit
    [[nodiscard]] int moment() const { return (month * 100 + day) * 100 + hour; }
};

struct Tables {
    std::vector<Insurer> insurers;
    std::vector<Patient> patients;
    std::vector<SideRow> sideRows;
    std::vector<Company> companies;
    std::vector<Visit> planned, actual;
};

MaybeNumber maybe(int least, int most)
{
    return oneIn(6) ? MaybeNumber() : anyNumber(least, most);
}

Visit anyVisit(bool isPlanned)
{
    Visit visit{.isOwnBranch = !oneIn(8), .patient = anyNumber(1, 5), .staff = maybe(1, 3)};
    visit.month = anyNumber(1, 3);
    visit.day = anyNumber(27, visit.month == 2 ? 29 : 31);
    if (oneIn(4)) visit.day = 1;
    if (isPlanned && oneIn(8)) visit.day = oneIn(2) ? 0 : 32;
    visit.hour = isPlanned ? 0 : anyNumber(0, 2);
    return visit;
}

Tables anyTables()
{
    Tables tables;
    for (const InsurerNumber &number : kInsurerNumbers)
        if (!oneIn(3)) tables.insurers.push_back({number, fmt::format("保険者{}", number.text), maybe(1, 5)});
    for (const bool isOwnBranch : {true, false})
        for (int number = 1; number <= 5; ++number) {
            if (oneIn(4)) continue;
            Patient patient;
            patient.isOwnBranch = isOwnBranch;
            patient.number = number;
            patient.name = fmt::format("利用者{}{}", number, isOwnBranch ? "" : "別");
            if (!oneIn(6)) patient.insurer = kInsurerNumbers[static_cast<std::size_t>(anyNumber(0, 4))];
            patient.agent = maybe(1, 5);
            patient.mainStaff = maybe(1, 3);
            patient.insuranceKind = maybe(1, 3);
            patient.hasEnded = oneIn(4);
            tables.patients.push_back(patient);
            if (oneIn(2)) tables.sideRows.push_back({isOwnBranch, number, maybe(0, 2)});
        }
    for (const bool isOwnBranch : {true, false})
        for (int number = 1; number <= 4; ++number)
            if (!oneIn(3))
                tables.companies.push_back({isOwnBranch, number, anyNumber(0, 3), fmt::format("会社{}", number),
                                            maybe(-1, 6), maybe(-1, 7), maybe(-1, 6)});
    for (int count = anyNumber(0, 14); count > 0; --count) tables.planned.push_back(anyVisit(true));
    for (int count = anyNumber(0, 14); count > 0; --count) tables.actual.push_back(anyVisit(false));
    return tables;
}

std::string sqlOf(const MaybeNumber &number)
{
    return number ? std::to_string(*number) : "NULL";
}

/// The branch of a FakeWorld is 1, 2.
std::string sqlOf(bool isOwnBranch)
{
    return isOwnBranch ? "1,2" : "1,3";
}

std::string insertionOf(const Tables &tables)
{
    std::string sql = "PRAGMA synchronous=OFF;BEGIN;DELETE FROM HOKENJA;DELETE FROM RIYOUSHA;DELETE FROM RIYOUSHA_SUB;"
                      "DELETE FROM CORP;DELETE FROM SCHEDULE;DELETE FROM JISSEKI;";
    for (const Insurer &row : tables.insurers)
        sql += fmt::format("INSERT INTO HOKENJA VALUES('{}','{}','地区{}',{});", row.number.text, row.name,
                           row.number.text, sqlOf(row.kind));
    for (const Patient &row : tables.patients)
        sql += fmt::format("INSERT INTO RIYOUSHA(iKyotenCd,iKyotenEb,nIDNo,cName,cAdress1,cSetaiName,cSetaiTelNo,"
                           "cSetaiAdress1,cHokenNo,nDairiID,nTantou,iHoken,tExpireDay)"
                           "VALUES({},{},'{}','住所{}','世帯{}','電話{}','世帯住所{}',{},{},{},{},{});",
                           sqlOf(row.isOwnBranch), row.number, row.name, row.name, row.name, row.name, row.name,
                           row.insurer ? fmt::format("'{}'", row.insurer->text) : "NULL", sqlOf(row.agent),
                           sqlOf(row.mainStaff), sqlOf(row.insuranceKind),
                           row.hasEnded ? "'2024-02-10 00:00:00'" : "NULL");
    for (const SideRow &row : tables.sideRows)
        sql += fmt::format("INSERT INTO RIYOUSHA_SUB VALUES({},{},{});", sqlOf(row.isOwnBranch), row.patient,
                           sqlOf(row.isGroupBilled));
    for (const Company &row : tables.companies)
        sql += fmt::format(
            "INSERT INTO CORP(iKyotenCd,iKyotenEb,nIDNo,iType,cShamei1,cAddress1,cDaihyo,cTelNo,cKinyuName,"
            "cKinyuSiten,cKozaBangou,cKozaMeigi1,iKinSyubetsu,iKinSiten,iKozaType)"
            "VALUES({},{},{},'{}','所在{}','代表{}','電話{}','金融{}','店{}','口座{}','名義{}',{},{},{});",
            sqlOf(row.isOwnBranch), row.number, row.kind, row.name, row.number, row.number, row.number, row.number,
            row.number, row.number, row.number, sqlOf(row.bankKind), sqlOf(row.officeKind), sqlOf(row.accountKind));
    for (const Visit &row : tables.planned)
        sql += fmt::format("INSERT INTO SCHEDULE VALUES({},{},{},2024{:02}{:02});", sqlOf(row.isOwnBranch), row.patient,
                           sqlOf(row.staff), row.month, row.day);
    for (const Visit &row : tables.actual)
        sql += fmt::format("INSERT INTO JISSEKI VALUES({},{},{},'2024-{:02}-{:02} {:02}:30:00');",
                           sqlOf(row.isOwnBranch), row.patient, sqlOf(row.staff), row.month, row.day, row.hour);
    return sql + "COMMIT;";
}

enum class Visits { planned, actual, none };

struct Conditions {
    Visits visits = Visits::none;
    bool isByDay = false, isHeadOffice = true, isSingle = false, includesEnded = false, isPeriodEntered = false,
         isSignatureEntered = false;
    int month = 2, day = 29, patient = -1, staff = -1, insuranceKind = 0;
};

Conditions anyConditions()
{
    Conditions conditions;
    conditions.visits = *rc::gen::element(Visits::planned, Visits::actual, Visits::none);
    conditions.isByDay = conditions.visits != Visits::none && oneIn(2);
    conditions.isHeadOffice = oneIn(2);
    conditions.isSingle = oneIn(4);
    conditions.includesEnded = oneIn(2);
    conditions.isPeriodEntered = oneIn(2);
    conditions.isSignatureEntered = oneIn(2);
    conditions.month = anyNumber(1, 3);
    conditions.day = oneIn(4) ? 1 : anyNumber(27, conditions.month == 2 ? 29 : 31);
    if (oneIn(3)) conditions.patient = anyNumber(0, 5);
    if (oneIn(3)) conditions.staff = anyNumber(0, 3);
    if (oneIn(3)) conditions.insuranceKind = anyNumber(0, 3);
    return conditions;
}

/// A letter and the number by which its place in the file is decided.
struct Letter {
    MaybeNumber order;
    Fields fields;
};

/// What the five queries must find, by loops over the rows.
class NaiveJoin {
public:
    NaiveJoin(const Tables &tables, const Conditions &conditions) : m_tables(tables), m_conditions(conditions) {}

    [[nodiscard]] std::vector<Letter> letters()
    {
        for (const Patient &patient : m_tables.patients) {
            if (!isChosen(patient)) continue;
            for (const Insurer &insurer : m_tables.insurers)
                if (patient.insurer && patient.insurer->group == insurer.number.group) joinVisits(patient, insurer);
        }
        std::ranges::stable_sort(m_letters, {}, &Letter::order); // no number comes first
        return m_letters;
    }

private:
    [[nodiscard]] bool isChosen(const Patient &patient) const
    {
        const Conditions &c = m_conditions;
        if (!patient.isOwnBranch || (c.patient > 0 && patient.number != c.patient)) return false;
        if (c.staff > 0 && !c.isByDay && patient.mainStaff != c.staff) return false;
        if (c.insuranceKind > 0 && patient.insuranceKind != c.insuranceKind) return false;
        const bool endedCounts =
            c.visits == Visits::none || (c.visits == Visits::planned && !c.isByDay && !c.includesEnded);
        return !patient.hasEnded || !endedCounts;
    }
    void joinVisits(const Patient &patient, const Insurer &insurer)
    {
        if (m_conditions.visits == Visits::none) return joinCompanies(patient, insurer, nullptr);
        const auto &visits = m_conditions.visits == Visits::planned ? m_tables.planned : m_tables.actual;
        for (const Visit &visit : visits) {
            if (!isOf(visit, patient) || !isQualifying(visit, visits)) continue;
            if (m_conditions.isByDay && m_conditions.staff > 0 && visit.staff != m_conditions.staff) continue;
            joinCompanies(patient, insurer, &visit);
        }
    }
    [[nodiscard]] bool isOf(const Visit &visit, const Patient &patient) const
    {
        return visit.isOwnBranch && visit.patient == patient.number && visit.month == m_conditions.month;
    }
    /// By month the last visit, by day one on the day without a later day in the month.
    [[nodiscard]] bool isQualifying(const Visit &visit, const std::vector<Visit> &visits) const
    {
        if (m_conditions.isByDay ? visit.day != m_conditions.day : visit.day == 0) return false;
        return std::ranges::none_of(visits, [&](const Visit &other) {
            if (!other.isOwnBranch || other.patient != visit.patient || other.month != visit.month) return false;
            return m_conditions.isByDay ? other.day > visit.day : other.moment() > visit.moment();
        });
    }
    [[nodiscard]] std::vector<const Company *> companiesThat(auto &&fits) const
    {
        std::vector<const Company *> found;
        for (const Company &company : m_tables.companies)
            if (company.isOwnBranch && fits(company)) found.push_back(&company);
        if (found.empty()) found.push_back(nullptr);
        return found;
    }
    void joinCompanies(const Patient &patient, const Insurer &insurer, const Visit *visit)
    {
        const bool isGroupBilled =
            !m_conditions.isHeadOffice && std::ranges::any_of(m_tables.sideRows, [&](const SideRow &row) {
                return row.isOwnBranch && row.patient == patient.number && row.isGroupBilled == 1;
            });
        const auto recipients = companiesThat([&](const Company &company) {
            return m_conditions.isHeadOffice ? company.kind == 0 : patient.agent == company.number;
        });
        const auto groups = companiesThat([](const Company &company) { return company.kind == 3; });
        for (const Company *recipient : recipients)
            for (const Company *group : groups)
                m_letters.push_back({m_conditions.isByDay ? visit->staff : patient.mainStaff,
                                     fieldsOf(patient, insurer, visit, isGroupBilled ? group : recipient)});
    }
    [[nodiscard]] Fields fieldsOf(const Patient &patient, const Insurer &insurer, const Visit *visit,
                                  const Company *company) const
    {
        const std::string name = company == nullptr ? "" : company->name;
        const auto numbered = [&](const char *text) {
            return company == nullptr ? std::string() : text + std::to_string(company->number);
        };
        const std::string bank = numbered("金融"), office = numbered("店");
        const auto word = [&](const MaybeNumber Company::*kind, auto... words) {
            const std::array<const char *, sizeof...(words)> all{words...};
            const int at = company == nullptr ? 0 : (company->*kind).value_or(0);
            return std::string(at < 1 || at > static_cast<int>(all.size()) ? ""
                                                                           : all[static_cast<std::size_t>(at) - 1]);
        };
        const std::string bankLine = bank + word(&Company::bankKind, "銀行", "金庫", "農協", "郵便局") + "  " + office +
                                     word(&Company::officeKind, "本店", "支店", "本所", "支所", "出張所");
        const bool hasBank = bankLine.find_first_not_of(' ') != std::string::npos;
        return {start(),
                end(),
                insurer.name,
                patient.name,
                "住所" + patient.name,
                name,
                numbered("所在"),
                numbered("代表"),
                numbered("電話"),
                bankLine,
                word(&Company::accountKind, "(普)", "(当)", "(通)", "(別)") + " " + numbered("口座"),
                numbered("名義"),
                lastTreatmentDay(visit),
                fmt::format("地区{}", insurer.number.text),
                insurer.kind ? std::to_string(*insurer.kind) : "",
                "世帯" + patient.name,
                "電話" + patient.name,
                "世帯住所" + patient.name,
                hasBank ? bank + "銀行  " + office + "支店" : "",
                m_conditions.isSignatureEntered ? "2024/07/03" : start()};
    }
    [[nodiscard]] std::string start() const
    {
        return m_conditions.isPeriodEntered ? "2024/06/10" : fmt::format("2024/{:02}/01", m_conditions.month);
    }
    [[nodiscard]] std::string end() const
    {
        if (m_conditions.isPeriodEntered) return "2024/05/09"; // before the start: it is not checked
        return fmt::format("2024/{:02}/{:02}", m_conditions.month, m_conditions.month == 2 ? 29 : 31);
    }
    [[nodiscard]] std::string lastTreatmentDay(const Visit *visit) const
    {
        using namespace std::chrono;
        if (visit == nullptr) return end();
        if (m_conditions.isByDay) return fmt::format("2024/{:02}/{:02}", m_conditions.month, m_conditions.day);
        if (m_conditions.visits == Visits::actual) return fmt::format("24/{:02}/{:02}", visit->month, visit->day);
        // Day 0 is the day before the first one, day 32 is in the next month.
        const year_month_day day(sys_days{2024y / visit->month / 1} + days{visit->day - 1});
        return fmt::format("{}/{:02}/{:02}", static_cast<int>(day.year()), static_cast<unsigned>(day.month()),
                           static_cast<unsigned>(day.day()));
    }

    const Tables &m_tables;
    const Conditions &m_conditions;
    std::vector<Letter> m_letters;
};

std::vector<Fields> extracted(App &app, const Conditions &conditions)
{
    frmPrintInin form(app);
    form.csTargetDate = fmt::format("2024/{:02}/{:02}", conditions.month, conditions.day);
    form.iDspPeriodKind = conditions.isPeriodEntered ? 2 : 1;
    form.imSetDateFrom.Value = DateSerial(2024, 6, 10);
    form.imSetDateTo.Value = DateSerial(2024, 5, 9);
    form.iSyomeiKind = conditions.isSignatureEntered ? 1 : 0;
    form.imSyomei.Value = DateSerial(2024, 7, 3);
    form.iTrustKind = conditions.isHeadOffice ? 1 : 2;
    form.iPrintKind = conditions.isSingle ? 1 : 0;
    form.iExpireKind = conditions.includesEnded ? 1 : 0;
    form.nKanjaNo = conditions.patient;
    form.nStaffNo = conditions.staff;
    form.iHokenIndex = static_cast<std::int16_t>(conditions.insuranceKind);
    using Extraction = std::int16_t (frmPrintInin::*)();
    constexpr Extraction kByMonth[] = {&frmPrintInin::iGetKanjaDataMonth, &frmPrintInin::iGetKanjaDataMonth_Jisseki,
                                       &frmPrintInin::iGetKanjaDataNoPeriod};
    constexpr Extraction kByDay[] = {&frmPrintInin::iGetKanjaDataDay, &frmPrintInin::iGetKanjaDataDay_Jisseki};
    const auto at = static_cast<std::size_t>(conditions.visits);
    RC_ASSERT((form.*(conditions.isByDay ? kByDay[at] : kByMonth[at]))() == 0);
    return form.rows();
}

/// Letters of one staff member have no order among themselves: each such group is sorted, in both lists.
void sortWithinGroups(std::vector<Letter> &expected, std::vector<Fields> &found)
{
    for (std::size_t begin = 0, end = 0; begin < expected.size(); begin = end) {
        while (end < expected.size() && expected[end].order == expected[begin].order) ++end;
        const auto at = [](auto &letters, std::size_t place) {
            return letters.begin() + static_cast<std::ptrdiff_t>(std::min(place, letters.size()));
        };
        std::sort(at(expected, begin), at(expected, end),
                  [](const Letter &a, const Letter &b) { return a.fields < b.fields; });
        std::sort(at(found, begin), at(found, end));
    }
}

} // namespace

TEST_CASE("each extraction finds the letters of nested loops over the tables, in the order of the staff numbers")
{
    EmbeddedWorld world;
    int letterCount = 0;
    checkProperty(400, [&] {
        const Tables tables = anyTables();
        const Conditions conditions = anyConditions();
        world.run(insertionOf(tables));

        std::vector<Letter> expected = NaiveJoin(tables, conditions).letters();
        std::vector<Fields> found = extracted(world.site, conditions);

        letterCount += static_cast<int>(found.size());
        if (conditions.isSingle && conditions.visits == Visits::none) {
            RC_ASSERT(found.size() == std::min<std::size_t>(expected.size(), 1));
            // Any letter of the first staff member.
            RC_ASSERT(found.empty() || std::ranges::any_of(expected, [&](const Letter &letter) {
                          return letter.order == expected.front().order && letter.fields == found.front();
                      }));
            return;
        }
        sortWithinGroups(expected, found);
        RC_ASSERT(std::ranges::equal(found, expected, {}, {}, &Letter::fields));
    });
    CHECK(letterCount > sampleSize(1000));
}
