#pragma once

#include "data/connection_settings.h"
#include "platform/key_codes.h"
#include "screen/grid.h"
#include "search/search_sql.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace inin {

/// One flag for all events of a window. A search lets the platform process events, so a second event can arrive during
/// the first one; it finds the flag set and does nothing.
class BusyFlag {
public:
    [[nodiscard]] bool isTaken() const { return m_taken; }

    /// Sets the flag, if it is clear, for its own lifetime.
    class Hold {
    public:
        explicit Hold(BusyFlag &flag) : m_flag(flag), m_holds(!std::exchange(flag.m_taken, true)) {}
        Hold(const Hold &) = delete;
        Hold &operator=(const Hold &) = delete;
        ~Hold()
        {
            if (m_holds) m_flag.m_taken = false;
        }
        /// False if the flag was already set.
        explicit operator bool() const { return m_holds; }

    private:
        BusyFlag &m_flag;
        bool m_holds;
    };

private:
    bool m_taken = false;
};

/// A column of a search list and its database column. With `second` it shows two numbers as one: each with two digits,
/// concatenated.
struct SearchColumn {
    const char *header;
    Grid::CellKind kind;
    std::int16_t width; ///< in characters
    std::string_view field;
    std::string_view second = {};
};

/// The third result of a search list besides success and failure: it was closed without a choice.
inline constexpr std::int16_t kNothingChosen = 1;

/// The differences between the two search lists that are data. Columns count from 1.
struct SearchDesign {
    const char *formName;
    const char *Caption;
    const char *endedCheckName;
    const char *endedCheckCaption;
    std::span<const SearchColumn> columns;
    std::int16_t numberColumn;
    std::int16_t nameColumn;
    std::int16_t areaColumn; ///< 0 for none
    const char *noStaffText; ///< if there is no staff at all
    const char *noRowText;   ///< if the search finds no row
};

/// A staff member of the branch, as both windows read them.
struct StaffEntry {
    std::int32_t nIDNo = 0;
    std::string name;
};

/// The common part of the two search lists: opening, search, grid, choice, keys, busy flag and messages. No error
/// leaves the window: a run-time error becomes a message and the window stays open.
class SearchForm : public Form {
public:
    // The controls of both windows, in tab order.
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

    /// Text of the last failure.
    [[nodiscard]] const std::string &CsErrStr() const { return m_errStr; }
    /// True if a row was chosen before the window closed.
    [[nodiscard]] bool isChosen() const { return m_isChosen; }
    /// Chooses a row, by default the active one of the grid, and closes; without a row it beeps and shows a message.
    void vWhenSeledOK(std::optional<std::int32_t> nSeledRow = std::nullopt);

    void Form_Activate() override;
    [[nodiscard]] std::vector<std::pair<std::string, Variant>> fields() const override;

protected:
    SearchForm(App &app, const SearchDesign &design);

    /// The check box that includes ended rows; its name differs by window.
    CheckBox m_endedCheck;

    void Form_Load() override;
    void Form_QueryUnload(std::int16_t &Cancel, bool byControlBox) override;
    void Form_KeyDown(std::int16_t &KeyCode) override;
    void Form_KeyPress(std::int16_t &KeyAscii) override;

    // The differences between the windows that are not data.
    [[nodiscard]] virtual std::string statement(const SearchFilter &filter) const = 0;
    [[nodiscard]] virtual SearchFilter readFilter() const;
    virtual void showFilter(const SearchFilter &filter);
    /// Called after the staff of the branch was read.
    virtual void showStaff(const std::vector<StaffEntry> & /*staff*/) {}
    /// The list is empty, or completely filled with the result of the filter.
    virtual void clearInfo() {}
    virtual void writeInfo(const SearchFilter & /*inForce*/) {}
    /// Handles the return key in a control; false keeps the focus there.
    [[nodiscard]] virtual bool confirmEntry(const Control * /*active*/) { return true; }
    /// The remainder of the window's load, within its error handling.
    virtual void readSettings() {}

    /// Starts with this filter and this row to highlight, 0 for none.
    void prepare(std::int32_t nSeledCode, const SearchFilter &filter);
    /// Runs a step of an event; an error becomes the error text and the system error message.
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
    /// Runs an event's step unless the window is busy; a failure is shown as the system error message.
    void whenFree(const std::function<void()> &step);
    void shortcut(const char *heading, const std::function<void()> &click);
    void returnKey();

    [[nodiscard]] std::int16_t open();
    [[nodiscard]] std::int16_t iMastDataLoad();
    [[nodiscard]] std::int16_t search();
    [[nodiscard]] std::int16_t iDsp1ranSub();
    /// Opens a statement; a failure sets CsErrStr under the heading.
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
    SearchFilter m_inForce; ///< of the rows shown
    std::vector<StaffEntry> m_staff;
    std::int16_t m_nextTab = 0;
};

} // namespace inin
