#pragma once

#include "data/ado_session.h"
#include "data/company_preload.h"
#include "printing/letter_row.h"
#include "printing/print_controls.h"
#include "screen/form.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace inin {

class LetterReader;
struct ExtractionQuery;
struct ExtractionRule;
struct LastVisitRule;
struct LetterDates;
struct StartedSession;
struct TargetDate;

/// The only working window: gathers the conditions of a print run, runs it and keeps its rows.
class frmPrintInin : public Form, public PrintControls {
public:
    explicit frmPrintInin(App &app);

    /// The head office, filled by the load. It lives as long as the process, like the form; nothing here reads it.
    CompanyRecord company;

    // Form-level fields, in their given order. All live as long as the form; a run overwrites them.
    std::unique_ptr<cT_ADODB> session; ///< nothing until the load has connected
    std::string csErrMsg;              ///< last error text of setStuff and of the two day helpers
    std::vector<IninRow> aIninRow;     ///< the letter rows of the last extraction
    std::int16_t iRowCount = 0;        ///< how many of them count
    std::string csTargetDate;
    std::int16_t iTgtDateKind = 0;   ///< 1 target month, 2 last treatment day, 3 no period
    std::int16_t iObjectKind = 0;    ///< 1 planned data, 2 actual data, 3 none
    std::int16_t iDspPeriodKind = 0; ///< 1 month start to month end, 2 entered period
    std::int16_t iTrustKind = 0;     ///< 1 head-office data, 2 agent data
    std::int16_t iHokenIndex = 0;    ///< list position of cmbHoken
    std::int16_t iPeriodFromDay = 0; ///< read by nothing
    std::int16_t iPeriodToDay = 0;   ///< read by nothing
    std::int32_t nStaffNo = 0;       ///< -1 when the box is empty
    std::int32_t nKanjaNo = 0;       ///< -1 when the box is empty
    std::int16_t iExpireKind = 0;
    std::int16_t iPrintKind = 0;  ///< 0, 1, 2: the report kind
    std::int16_t iSyomeiKind = 0; ///< 0 automatic signature date, 1 entered

    // Events of the options and lists; what each does to which control is the table in screen_rules.cpp.
    void optPrint_Click(std::int16_t Index);
    void optObject_Click(std::int16_t Index);
    void optTgtDate_Click(std::int16_t Index);
    void optTrust_Click(std::int16_t Index);
    void optDspPeriod_Click(std::int16_t Index);
    void optSyomei_Click(std::int16_t Index);
    void cbSejyutsu_Click();
    void chkChushi_Click();

    // Events of the search buttons and of the return key in a number box.
    void btn_StaffSelect_Click();
    void btn_KanjaSelect_Click();
    void imNum_StaffNo_KeyPress(std::int16_t KeyCode);
    void imNum_CD_KeyPress(std::int16_t KeyCode);
    /// Lets a staff member be picked and writes the number to the box and the list, if given. The number, or -1 when
    /// nobody was picked.
    std::int32_t iSelectStaff(NumberBox *box = nullptr, ListBox *list = nullptr);
    /// Chooses the list's entry of a typed staff number. 0, or -1 after a box.
    [[nodiscard]] std::int16_t iChkStaffNo(std::int32_t nIDNo, ListBox &list);
    /// Lets a patient be picked; leaving the window means everybody.
    void iSelectKanja();

    // Events of the commands.
    void mnF01_Click();
    void mnF02_Click();
    void mnF12_Click();
    void mnVer_Click();
    void mnDispHelp_Click();
    void btnPrint_Click(std::int16_t Index);

    /// Fills the staff list of this branch from the screen's session; with chkChushi ticked, those who have stopped too.
    /// 0, or -1 with the words in csErrMsg.
    [[nodiscard]] std::int16_t setStuff();
    /// Fills the list of insurance kinds on a session of its own. 0 or -1; only a failed connection shows a box.
    [[nodiscard]] std::int16_t nGetFutanKingaku();
    /// Marks the options as "印刷設定.ini" says and fires their clicks: 1 read, 0 not.
    std::int32_t iLoadPrintSetting();
    /// Writes the kinds and the marks to "印刷設定.ini".
    void iSavePrintSetting();

    /// The whole run: 1 prints through the tool's dialog, 0 previews.
    void vRunPrint(std::int16_t iPrintMode);
    /// Copies the screen into the condition fields. 0, or -1 after a box with the run-time error.
    [[nodiscard]] std::int16_t iGetPrintCond();
    /// Replaces "委任状.csv" by the rows 0 to iRowCount - 1; file errors go to the caller.
    void saveCSVInin();

    // The five extractions: 0 when the query ran, even without rows, else -1 after a box.
    [[nodiscard]] std::int16_t iGetKanjaDataMonth();
    [[nodiscard]] std::int16_t iGetKanjaDataMonth_Jisseki();
    [[nodiscard]] std::int16_t iGetKanjaDataDay();
    [[nodiscard]] std::int16_t iGetKanjaDataDay_Jisseki();
    [[nodiscard]] std::int16_t iGetKanjaDataNoPeriod();

    /// Day of the month of the patient's last planned visit in the month, -1 for none or a failure.
    [[nodiscard]] std::int32_t getLastScheduleDay(std::int32_t nRiyoushaNo, std::int32_t nYear, std::int32_t nMonth);
    /// The same for the actual visits.
    [[nodiscard]] std::int32_t getLastJissekieDay(std::int32_t nRiyoushaNo, std::int32_t nYear, std::int32_t nMonth);

    [[nodiscard]] std::vector<std::pair<std::string, Variant>> fields() const override;
    [[nodiscard]] std::vector<std::vector<std::string>> rows() const override;

protected:
    void Form_Load() override;
    /// Disconnects, hands back to "Main.exe" and ends the process.
    void Form_Unload(std::int16_t &Cancel) override;

private:
    void wireEvents();
    void runClickRule(OptionGroup PrintControls::*group, std::int16_t Index);
    void runReportedRule(OptionGroup PrintControls::*group, std::int16_t Index, const char *csFuncName);
    void showPeriodMonth(const DateBox &date);
    /// The form's own null-safe conversion: the result is 0 for NULL and for what is no 32-bit number.
    void nNullToLong(const Variant &vValue, std::int32_t &nResult) const;
    // The report kind and the signature kind, as the options are marked.
    [[nodiscard]] std::int16_t markedPrintKind();
    [[nodiscard]] std::int16_t markedSyomeiKind();
    void setDates();
    [[nodiscard]] bool connectScreen();
    [[nodiscard]] bool findLetters();
    void outputLetters(std::int16_t iPrintMode);
    void readTargetDate();
    void readPeriodKind();
    [[nodiscard]] std::int16_t extract(const ExtractionRule &rule);
    [[nodiscard]] std::int16_t extractOver(StartedSession &own, const ExtractionRule &rule);
    [[nodiscard]] ExtractionQuery queryFor(const ExtractionRule &rule, const TargetDate &target) const;
    [[nodiscard]] LetterDates datesOf(const TargetDate &target) const;
    [[nodiscard]] std::int16_t readLetters(Recordset &rsData, const ExtractionRule &rule, const LetterDates &dates);
    [[nodiscard]] bool isLastVisit(LetterReader &reader, const LastVisitRule &rule, const TargetDate &target);
    [[nodiscard]] std::int32_t lastVisitDay(const LastVisitRule &rule, std::int32_t nRiyoushaNo, std::int32_t nYear,
                                            std::int32_t nMonth);

    App &m_app;
    std::uint64_t m_csvSize = 0; ///< bytes of the CSV that was written last
};

} // namespace inin
