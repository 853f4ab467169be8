#pragma once

#include "platform/key_codes.h"
#include "screen/controls.h"

#include <initializer_list>
#include <vector>

namespace inin {

/// The number of a list's first entry, which sets no condition.
inline constexpr std::int32_t kNoChoice = -1;

/// The controls of the conditions screen, frame by frame from the top. Their initial state (captions, tab order,
/// formats, hidden controls) is the table in print_controls.cpp.
class PrintControls {
public:
    PrintControls();

    Frame Frame3{"Frame3"};
    OptionGroup optPrint{"optPrint", 3}; ///< 0 standard, 1 Aichi late-stage format, 2 Takamatsu format

    Frame frmObject{"frmObject"};
    OptionGroup optObject{"optObject", 3}; ///< 0 planned data, 1 actual data, 2 none

    Frame fraJisseki{"fraJisseki(1)"};
    Label Label1{"Label1"};
    Button btn_StaffSelect{"btn_StaffSelect"};
    NumberBox imNum_StaffNo{"imNum_StaffNo"};
    ListBox cbSejyutsu{"cbSejyutsu"};
    CheckBox chkChushi{"chkChushi"};
    Label Label7{"Label7"};
    Button btn_KanjaSelect{"btn_KanjaSelect"};
    NumberBox imNum_CD{"imNum_CD"};
    Label lbl_SelKanja{"lbl_SelKanja"};
    CheckBox chkExpireDay{"chkExpireDay"};
    OptionGroup optTgtDate{"optTgtDate", 3}; ///< 0 target month, 1 last treatment day, 2 no period (hidden)
    DateBox imD_Out{"imD_Out"};
    DateBox imD_LastDay{"imD_LastDay"};
    Label Label5{"Label5"};
    ListBox cmbHoken{"cmbHoken"};

    Frame Frame2{"Frame2"};
    OptionGroup optTrust{"optTrust", 2}; ///< 0 head office, 1 agent

    Frame Frame1{"Frame1"};
    OptionGroup optDspPeriod{"optDspPeriod", 2}; ///< 0 month start to month end, 1 entered period
    DateBox imSetDateFrom{"imSetDateFrom"};
    Label lbl001_0{"lbl001(0)"};
    DateBox imSetDateTo{"imSetDateTo"};
    Label lbl001_1{"lbl001(1)"};
    Label iTPeriodMonth{"iTPeriodMonth"};
    NumberBox inPeriodFrom{"inPeriodFrom"};
    Label Label4{"Label4"};
    Label Label2{"Label2"};
    NumberBox inPeriodTo{"inPeriodTo"};
    Label Label3{"Label3"};

    Frame Frame4{"Frame4"};
    OptionGroup optSyomei{"optSyomei", 2}; ///< 0 automatic, 1 entered
    DateBox imSyomei{"imSyomei"};

    Frame Picture1{"Picture1"};
    ButtonArray btnPrint{"btnPrint", {0, 1, 6}};

    MenuEntry mnFunc{"mnFunc"};
    MenuEntry mnF01{"mnF01", kF1Key};
    MenuEntry mnF02{"mnF02", kF2Key};
    MenuEntry mnKugiri{"mnKugiri"};
    MenuEntry mnF12{"mnF12", kF12Key};
    MenuEntry mnHelp{"mnHelp"};
    MenuEntry mnVer{"mnVer"};
    MenuEntry mnDispHelp{"mnDispHelp"};

protected:
    /// All controls from the top of the screen down, each after its container.
    [[nodiscard]] const std::vector<Control *> &designed() const { return m_designed; }

private:
    struct Design;
    void design(std::initializer_list<Design> lines);
    void designReportAndObject();
    void designFilters();
    void designLetterItems();
    void designCommands();
    void designValues();

    std::vector<Control *> m_designed;
};

} // namespace inin
