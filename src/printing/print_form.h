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

struct ExtractionRule;
struct LetterConditions;

/// The only working window: reads the conditions of a print run, executes it and keeps its rows.
class frmPrintInin : public Form, public PrintControls {
public:
    explicit frmPrintInin(App &app);

    /// The head office, filled by the load. It lives as long as the process, like the form; this form does not read it.
    CompanyRecord company;

    // Form-level fields, in their required order. All live as long as the form; a run overwrites them.
    std::unique_ptr<cT_ADODB> session; ///< null until the load has connected
    std::string csErrMsg;              ///< last error text of setStuff and of the two day helpers
    std::vector<IninRow> aIninRow;     ///< rows of the last extraction; a run without an extraction prints them again
    std::int16_t iRowCount = 0;        ///< how many of them are valid
    std::string csTargetDate;
    std::int16_t iTgtDateKind = 0;   ///< 1 target month, 2 last treatment day, 3 no period
    std::int16_t iObjectKind = 0;    ///< 1 planned data, 2 actual data, 3 none
    std::int16_t iDspPeriodKind = 0; ///< 1 month start to month end, 2 entered period
    std::int16_t iTrustKind = 0;     ///< 1 head-office data, 2 agent data
    std::int16_t iHokenIndex = 0;    ///< list position of cmbHoken
    std::int16_t iPeriodFromDay = 0; ///< set, but never read
    std::int16_t iPeriodToDay = 0;   ///< set, but never read
    std::int32_t nStaffNo = 0;       ///< -1 if the box is empty
    std::int32_t nKanjaNo = 0;       ///< -1 if the box is empty
    std::int16_t iExpireKind = 0;
    std::int16_t iPrintKind = 0;  ///< 0, 1, 2: the report kind
    std::int16_t iSyomeiKind = 0; ///< 0 automatic signature date, 1 entered

    // option_rules.cpp: events of the options and of the two target dates.
    void optPrint_Click(std::int16_t Index);
    void optObject_Click(std::int16_t Index);
    void optTgtDate_Click(std::int16_t Index);
    void optTrust_Click(std::int16_t Index);
    void optDspPeriod_Click(std::int16_t Index);
    void optSyomei_Click(std::int16_t Index);
    void imD_Out_Change();
    void imD_LastDay_Change();

    // person_choice.cpp: staff member and patient. In the number boxes only the return key has an effect.
    void cbSejyutsu_Click();
    void btn_StaffSelect_Click();
    void btn_KanjaSelect_Click();
    void imNum_StaffNo_KeyPress(std::int16_t KeyCode);
    void imNum_CD_KeyPress(std::int16_t KeyCode);
    /// Shows the staff search and puts the chosen number into the box and the list, if given. Returns the number, or -1
    /// without a choice.
    std::int32_t iSelectStaff(NumberBox *box = nullptr, ListBox *list = nullptr);
    /// Checks a typed staff number and selects its entry in the list. 0, or -1 after a box.
    [[nodiscard]] std::int16_t iChkStaffNo(std::int32_t nIDNo, ListBox &list);
    /// Shows the patient search; leaving it without a choice selects all patients.
    void iSelectKanja();

    // print_form.cpp: commands and menus.
    void mnF01_Click();
    void mnF02_Click();
    void mnF12_Click();
    void mnVer_Click();
    void mnDispHelp_Click();
    void btnPrint_Click(std::int16_t Index);

    // staff_and_insurance_lists.cpp
    void chkChushi_Click();
    /// Fills the staff list of this branch through the screen's session, including former staff while chkChushi is
    /// ticked. 0, or -1 with the error text in csErrMsg.
    [[nodiscard]] std::int16_t setStuff();
    /// Fills the list of insurance kinds, on a session of its own; the name is historical. 0 or -1. A failed session
    /// shows its own box, and the load shows a second one for every failure.
    [[nodiscard]] std::int16_t nGetFutanKingaku();

    // settings_store.cpp
    /// Sets the options from "印刷設定.ini", which fires their clicks: 1 read, 0 not.
    std::int32_t iLoadPrintSetting();
    /// Writes the kinds and the selected options to "印刷設定.ini".
    void iSavePrintSetting();

    // print_conditions.cpp
    /// Copies the screen into the condition fields. 0, or -1 after a box with the run-time error.
    [[nodiscard]] std::int16_t iGetPrintCond();

    // print_run.cpp
    /// The whole run: 1 prints through the tool's dialog, 0 previews.
    void vRunPrint(std::int16_t iPrintMode);
    /// Replaces "委任状.csv" by the rows 0 to iRowCount - 1; file errors go to the caller.
    void saveCSVInin();

    // The five extractions: 0 if the query ran, even without rows, else -1 after a box.
    [[nodiscard]] std::int16_t iGetKanjaDataMonth();
    [[nodiscard]] std::int16_t iGetKanjaDataMonth_Jisseki();
    [[nodiscard]] std::int16_t iGetKanjaDataDay();
    [[nodiscard]] std::int16_t iGetKanjaDataDay_Jisseki();
    [[nodiscard]] std::int16_t iGetKanjaDataNoPeriod();

    /// Day of the month of the patient's last planned visit in the month; -1 for none or a failure.
    [[nodiscard]] std::int32_t getLastScheduleDay(std::int32_t nRiyoushaNo, std::int32_t nYear, std::int32_t nMonth);
    /// The same for the actual visits.
    [[nodiscard]] std::int32_t getLastJissekieDay(std::int32_t nRiyoushaNo, std::int32_t nYear, std::int32_t nMonth);

    [[nodiscard]] std::vector<std::pair<std::string, Variant>> fields() const override;
    [[nodiscard]] std::vector<std::vector<std::string>> rows() const override;

protected:
    void Form_Load() override;
    /// Disconnects, starts "Main.exe" again and ends the process.
    void Form_Unload(std::int16_t &Cancel) override;

private:
    void wireEvents();
    void showPeriodMonth(const DateBox &date);
    /// The form's own null-safe conversion: 0 for NULL and for anything that is not a 32-bit number.
    void nNullToLong(const Variant &vValue, std::int32_t &nResult) const;
    // The report kind and the signature kind of the selected options.
    [[nodiscard]] std::int16_t markedPrintKind();
    [[nodiscard]] std::int16_t markedSyomeiKind();
    void setDates();
    [[nodiscard]] bool connectScreen();
    [[nodiscard]] bool findLetters();
    void outputLetters(std::int16_t iPrintMode);
    void readTargetDate();
    void readPeriodKind();
    [[nodiscard]] std::int16_t extract(const ExtractionRule &rule);
    [[nodiscard]] LetterConditions letterConditions() const;

    App &m_app;
    std::uint64_t m_csvSize = 0; ///< size in bytes of the last CSV
};

} // namespace inin
