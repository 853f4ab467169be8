// Random clicks and entries on the conditions screen, by the operator and by the program, against a model of its rules.

#include "platform/key_codes.h"
#include "printing/print_form.h"
#include "properties/property.h"
#include "support/fake_platform.h"

#include <fmt/format.h>

#include <map>
#include <set>

using namespace inin;
using namespace inin::test;

namespace {

struct DayText {
    std::int32_t year, month, day;
    const char *monthLabel, *firstOfMonth, *text;
};
constexpr DayText kDays[] = {
    {2024, 5, 20, "令和06年 05月", "2024/05/1", "2024/05/20"},
    {2019, 4, 30, "平成31年 04月", "2019/04/1", "2019/04/30"},
    {2024, 2, 29, "令和06年 02月", "2024/02/1", "2024/02/29"},
};
constexpr std::int32_t kListedStaff[] = {-1, 11, 12};

/// The screen by its rules, written without the code of the screen.
struct ScreenModel {
    std::map<std::string, int> marked{{"optPrint", -1}, {"optObject", -1},    {"optTgtDate", -1},
                                      {"optTrust", -1}, {"optDspPeriod", -1}, {"optSyomei", 1}};
    std::set<std::string> disabled;
    std::string monthLabel = "平成99年99月", targetDate;
    const DayText *targetMonth = nullptr, *lastDay = nullptr;
    int staffEntry = 0;
    std::optional<std::int32_t> staffNumber;
    int targetKind = 0, objectKind = 0, periodKind = 0, trustKind = 0, printKind = 0, signatureKind = 0;
    std::int32_t staffOfRun = 0;
    std::size_t boxes = 0;

    void enable(bool isEnabled, std::initializer_list<const char *> names)
    {
        for (const char *name : names) {
            disabled.erase(name);
            if (!isEnabled) disabled.insert(name);
        }
    }
    void showMonth(const DayText *day) { monthLabel = day == nullptr ? "" : day->monthLabel; }

    /// Marks an option. One that is already marked does nothing.
    void click(const std::string &group, int index)
    {
        int &mark = marked.at(group);
        if (mark == index) return;
        mark = index;
        if (group == "optPrint") clickReport(index);
        if (group == "optObject") objectKind = index == 0 ? 1 : 2;
        if (group == "optTrust") trustKind = index == 0 ? 1 : 2;
        if (group == "optTgtDate") clickTargetDate(index);
        if (group == "optDspPeriod") {
            periodKind = index == 0 ? 1 : 2;
            enable(index != 0, {"imSetDateFrom", "imSetDateTo"});
        }
        if (group == "optSyomei") enable(index == 1, {"imSyomei"});
    }
    void clickReport(int index)
    {
        if (index == 1) click("optObject", 2);
        enable(index != 1, {"optTrust(0)",   "optTrust(1)",     "optDspPeriod(0)", "optDspPeriod(1)", "imSetDateFrom",
                            "imSetDateTo",   "optObject(0)",    "optObject(1)",    "btn_StaffSelect", "imNum_StaffNo",
                            "cbSejyutsu",    "btn_KanjaSelect", "imNum_CD",        "lbl_SelKanja",    "chkExpireDay",
                            "optTgtDate(0)", "optTgtDate(1)",   "imD_Out",         "imD_LastDay",     "cmbHoken"});
    }
    void clickTargetDate(int index)
    {
        targetKind = index + 1;
        enable(index == 0, {"imD_Out"});
        enable(index == 1, {"imD_LastDay"});
        enable(index != 2, {"frmObject"});
        if (index == 0) showMonth(targetMonth);
        if (index == 1) showMonth(lastDay);
    }
    void enterDate(const DayText *ScreenModel::*box, const DayText *day)
    {
        if (this->*box == day) return;
        this->*box = day;
        showMonth(day);
    }
    /// A choice by hand counts even if it changes nothing.
    void chooseStaff(int entry)
    {
        staffEntry = entry;
        staffNumber = entry == 0 ? 0 : kListedStaff[entry];
    }
    /// 77 is employed, but not in the list; 99 is unknown.
    void enterStaff(std::optional<std::int32_t> number)
    {
        staffNumber = number;
        const std::int32_t typed = number.value_or(0);
        if (typed == 99) ++boxes;
        const int entry = typed == 0 ? 0 : typed == 11 ? 1 : typed == 12 ? 2 : staffEntry;
        if (entry == staffEntry) return;
        chooseStaff(entry);
    }
    /// The conditions of a run: 0, or -1 when a date is missing.
    int readConditions()
    {
        switch (marked["optTgtDate"]) {
        case 0:
        case 1: {
            const bool isMonth = marked["optTgtDate"] == 0;
            const DayText *day = isMonth ? targetMonth : lastDay;
            targetKind = isMonth ? 1 : 2;
            if (day == nullptr) return failed();
            targetDate = isMonth ? day->firstOfMonth : day->text;
            break;
        }
        case 2:
            targetKind = 3;
            targetDate = "2024/6/15"; // today
            break;
        default:
            break;
        }
        objectKind = marked["optObject"] == 0 ? 1 : marked["optObject"] == 1 ? 2 : 3;
        trustKind = marked["optTrust"] == 0 ? 1 : 2;
        periodKind = marked["optDspPeriod"] == 0 ? 1 : 2;
        if (periodKind == 2 && targetDate.empty()) return failed();
        staffOfRun = staffNumber.value_or(-1);
        printKind = marked["optPrint"] == 0 ? 0 : marked["optPrint"] == 2 ? 2 : 1;
        signatureKind = marked["optSyomei"] == 0 ? 0 : 1;
        return 0;
    }
    int failed()
    {
        ++boxes;
        return -1;
    }
    /// Also disabled by its frame, and never for the hidden option.
    [[nodiscard]] bool isReachable(const std::string &name) const
    {
        if (name == "optTgtDate(2)") return false;
        return !disabled.contains(name) && !(name.starts_with("optObject") && disabled.contains("frmObject"));
    }
};

/// The screen itself, next to its model. Each step does the same to both.
class ScreenPlay {
public:
    ScreenPlay()
    {
        for (const std::int32_t number : kListedStaff) m_form.cbSejyutsu.AddItem(std::to_string(number), number);
        m_form.cbSejyutsu.ListIndex.assignQuietly(0);
        for (const int number : {11, 12, 77}) {
            FakeResult known;
            known.columns = {"cName", "iChusiFlg"};
            known.rows = {{"施術者", std::int16_t{0}}};
            m_world.database.resultsByText.emplace_back(fmt::format("FROM STAFF  WHERE nIDNo = {} ", number), known);
        }
        FakeResult unknown;
        unknown.columns = {"cName", "iChusiFlg"};
        m_world.database.resultsByText.emplace_back("FROM STAFF  WHERE nIDNo = 99 ", unknown);
    }

    /// The number of steps in each of the groups below.
    static constexpr int kOptions = 15, kDates = 8, kPicks = 3, kKeys = 5;
    static constexpr int kSteps = 2 * kOptions + kDates + kPicks + kKeys + 1;

    void step(int choice)
    {
        if (choice < 2 * kOptions) return option(choice % kOptions, choice < kOptions);
        if ((choice -= 2 * kOptions) < kDates) return date(choice);
        if ((choice -= kDates) < kPicks) return pick(choice);
        if ((choice -= kPicks) < kKeys) return staffNumber(choice);
        RC_ASSERT(m_form.iGetPrintCond() == m_model.readConditions());
    }

    void compare()
    {
        std::set<std::string> disabled;
        for (const Control *control : m_form.controls())
            if (!control->Enabled) disabled.insert(control->name());
        RC_ASSERT(disabled == m_model.disabled);
        const std::map<std::string, int> marked{
            {"optPrint", m_form.optPrint.marked()},         {"optObject", m_form.optObject.marked()},
            {"optTgtDate", m_form.optTgtDate.marked()},     {"optTrust", m_form.optTrust.marked()},
            {"optDspPeriod", m_form.optDspPeriod.marked()}, {"optSyomei", m_form.optSyomei.marked()}};
        RC_ASSERT(marked == m_model.marked);
        RC_ASSERT(m_form.iTgtDateKind == m_model.targetKind);
        RC_ASSERT(m_form.iObjectKind == m_model.objectKind);
        RC_ASSERT(m_form.iDspPeriodKind == m_model.periodKind);
        RC_ASSERT(m_form.iTrustKind == m_model.trustKind);
        RC_ASSERT(m_form.iPrintKind == m_model.printKind);
        RC_ASSERT(m_form.iSyomeiKind == m_model.signatureKind);
        RC_ASSERT(m_form.nStaffNo == m_model.staffOfRun);
        RC_ASSERT(m_form.csTargetDate == m_model.targetDate);
        RC_ASSERT(m_form.iTPeriodMonth.Caption.get() == m_model.monthLabel);
        RC_ASSERT(m_form.cbSejyutsu.ListIndex == m_model.staffEntry);
        const Variant number = m_model.staffNumber ? Variant(*m_model.staffNumber) : Variant(Null{});
        RC_ASSERT(m_form.imNum_StaffNo.Value.get() == number);
        RC_ASSERT(m_world.boxes.shown.size() == m_model.boxes);
    }

private:
    void option(int choice, bool isOperator)
    {
        OptionGroup *const groups[] = {&m_form.optPrint, &m_form.optObject,    &m_form.optTgtDate,
                                       &m_form.optTrust, &m_form.optDspPeriod, &m_form.optSyomei};
        for (OptionGroup *group : groups) {
            if (choice >= group->count()) {
                choice -= group->count();
                continue;
            }
            OptionButton &button = (*group)(static_cast<std::int16_t>(choice));
            RC_ASSERT(button.isReachable() == m_model.isReachable(button.name()));
            if (isOperator && !button.isReachable()) return;
            button.Value = true;
            return m_model.click(button.name().substr(0, button.name().find('(')), choice);
        }
    }
    void date(int choice)
    {
        const bool isMonth = choice < kDates / 2;
        const std::size_t at = static_cast<std::size_t>(choice % (kDates / 2));
        const DayText *day = at < std::size(kDays) ? &kDays[at] : nullptr;
        const Variant value = day == nullptr ? Variant(Null{}) : Variant(DateSerial(day->year, day->month, day->day));
        (isMonth ? m_form.imD_Out : m_form.imD_LastDay).Value = value;
        m_model.enterDate(isMonth ? &ScreenModel::targetMonth : &ScreenModel::lastDay, day);
    }
    void pick(int entry)
    {
        m_form.cbSejyutsu.pick(static_cast<std::int16_t>(entry));
        m_model.chooseStaff(entry);
    }
    void staffNumber(int choice)
    {
        const std::optional<std::int32_t> numbers[kKeys] = {std::nullopt, 0, 12, 77, 99};
        const std::optional<std::int32_t> number = numbers[choice];
        m_form.imNum_StaffNo.Value = number ? Variant(*number) : Variant(Null{});
        m_form.imNum_StaffNo.onKeyPress(kReturnKey);
        m_model.enterStaff(number);
    }

    FakeWorld m_world;
    frmPrintInin m_form{m_world.app};
    ScreenModel m_model;
};

} // namespace

TEST_CASE("after each random click and entry the conditions screen is in the state of the model")
{
    int steps = 0;
    checkProperty(1000, [&] {
        const auto choices =
            *rc::gen::resize(400, rc::gen::container<std::vector<int>>(rc::gen::inRange(0, ScreenPlay::kSteps)));
        ScreenPlay play;
        for (const int choice : choices) {
            play.step(choice);
            play.compare();
            ++steps;
        }
    });
    CHECK(steps >= sampleSize(100'000));
}
