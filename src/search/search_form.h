#pragma once

#include "data/connection_settings.h"
#include "platform/key_codes.h"
#include "screen/grid.h"
#include "search/busy_flag.h"
#include "search/search_filter.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace inin {

/// A column of a pick list and the database column that fills it. With `second` it is one number out of two: each
/// written with two digits, joined.
struct SearchColumn {
    const char *header;
    Grid::CellKind kind;
    std::int16_t width; ///< in characters
    std::string_view field;
    std::string_view second = {};
};

/// A pick list's third result besides good and bad: it was left without a choice.
inline constexpr std::int16_t kNothingChosen = 1;

/// In what a pick list differs from the other one, as far as it is data. Columns count from 1.
struct SearchDesign {
    const char *formName;
    const char *Caption;
    const char *endedCheckName;
    const char *endedCheckCaption;
    std::span<const SearchColumn> columns;
    std::int16_t numberColumn;
    std::int16_t nameColumn;
    std::int16_t areaColumn; ///< 0 for none
    const char *noStaffText; ///< when there is no staff at all
    const char *noRowText;   ///< when the search finds nothing
};

/// A staff member of the branch, as both windows collect them.
struct StaffEntry {
    std::int32_t nIDNo = 0;
    std::string name;
};

/// What the two pick lists have in common: the opening, the search into the grid, the choosing, the keys, the busy mark
/// and the messages. Nothing of it leaves the window as an error: a run-time error becomes a message and the window
/// stays.
class SearchForm : public Form {
public:
    // Controls that both windows have, in tab order.
    NumberBox in_SiboriID{"in_SiboriID"};
    TextBox txt_SiboriName{"txt_SiboriName"};
    TextBox txt_SiboriKana{"txt_SiboriKana"};
    Button but_Read{"but_Read"};
    Grid spr_1ran;
    ButtonArray but_Act{"but_Act", {0, 1}}; ///< 0 choose, 1 leave
    Label StatusBar1{"StatusBar1"};
    MenuEntry mnF04{"mnF04", kF4Key};
    MenuEntry mnF05{"mnF05", kF5Key};
    MenuEntry mnF12{"mnF12", kF12Key};
    MenuEntry mnHelp{"mnHelp"};
    MenuEntry mnDispHelp{"mnDispHelp"};

    /// Words of the last failure.
    [[nodiscard]] const std::string &CsErrStr() const { return m_errStr; }
    /// True when a row was chosen before the window closed.
    [[nodiscard]] bool isChosen() const { return m_isChosen; }
    /// Chooses a row, the grid's active one without argument, and closes; without a row a beep and a message.
    void vWhenSeledOK(std::optional<std::int32_t> nSeledRow = std::nullopt);

    void Form_Activate() override;
    [[nodiscard]] std::vector<std::pair<std::string, Variant>> fields() const override;

protected:
    SearchForm(App &app, const SearchDesign &design);

    /// The check box that lets ended ones count; the windows name it differently.
    CheckBox m_endedCheck;

    void Form_Load() override;
    void Form_QueryUnload(std::int16_t &Cancel, bool byControlBox) override;
    void Form_KeyDown(std::int16_t &KeyCode) override;
    void Form_KeyPress(std::int16_t &KeyAscii) override;

    // In what a window differs besides its data.
    [[nodiscard]] virtual std::string statement(const SearchFilter &filter) const = 0;
    [[nodiscard]] virtual SearchFilter readFilter() const;
    virtual void showFilter(const SearchFilter &filter);
    /// The staff of the branch was read.
    virtual void showStaff(const std::vector<StaffEntry> & /*staff*/) {}
    /// The list is empty, or stands complete with what the filter found.
    virtual void clearInfo() {}
    virtual void writeInfo(const SearchFilter & /*inForce*/) {}
    /// The return key in a control; false keeps the focus there.
    [[nodiscard]] virtual bool confirmEntry(const Control * /*active*/) { return true; }
    /// The rest of the window's load, under its trap.
    virtual void readSettings() {}

    /// Starts with this filter and this row to highlight, 0 for none.
    void prepare(std::int32_t nSeledCode, const SearchFilter &filter);
    /// Runs a step of an event: what it lets out becomes the words of the failure and the system error message.
    void trapped(const std::function<void()> &step);
    /// Adds a control at the end of the tab order.
    void addStop(Control &control);
    void addLabelled(Control &control, const char *caption);
    void addCommon();
    void addCommands();

    [[nodiscard]] App &app() const { return m_app; }
    [[nodiscard]] std::int32_t seledCD() const { return m_seledCD; }
    [[nodiscard]] const std::string &seledName() const { return m_seledName; }
    [[nodiscard]] std::int32_t area() const { return m_area; }
    void setErrStr(std::string words) { m_errStr = std::move(words); }

private:
    void wireEvents();
    void but_Read_Click();
    void but_Act_Click(std::int16_t Index);
    void spr_1ran_DblClick(std::int32_t Row);
    /// Runs an event's step unless the window is busy; its failure is told as the system error message.
    void whenFree(const std::function<void()> &step);
    void shortcut(const char *heading, const std::function<void()> &click);
    void returnKey();

    [[nodiscard]] std::int16_t open();
    [[nodiscard]] std::int16_t iMastDataLoad();
    [[nodiscard]] std::int16_t search();
    [[nodiscard]] std::int16_t iDsp1ranSub();
    /// Opens a statement; a failure leaves its words under the heading in CsErrStr.
    [[nodiscard]] std::unique_ptr<Recordset> openRows(StartedSession &own, const std::string &sql,
                                                      const std::string &heading);
    void clearList();
    void fillGrid(Recordset &rsData);
    void highlightSeled();
    void systemErrorBox();

    App &m_app;
    const SearchDesign &m_design;
    BusyFlag m_busy;
    bool m_isChosen = false;
    bool m_isFirstActivation = true;
    std::string m_errStr;
    std::int32_t m_area = 0;
    std::int32_t m_seledCD = 0;
    std::string m_seledName;
    SearchFilter m_edited;
    SearchFilter m_inForce; ///< of the rows on the screen
    std::vector<StaffEntry> m_staff;
    std::int16_t m_nextTab = 0;
};

} // namespace inin
