// The rows of a search list: opening of the window, filter record, statement, grid.

#include "common/helpers.h"
#include "runtime/conversion.h"
#include "runtime/format.h"
#include "runtime/text.h"
#include "search/search_form.h"
#include "search/search_sql.h"
#include "shell/error_box.h"

namespace inin {

namespace {

/// Suspends drawing until the grid is completely filled.
class RedrawOff {
public:
    explicit RedrawOff(Grid &grid) : m_grid(grid) { m_grid.ReDraw = false; }
    RedrawOff(const RedrawOff &) = delete;
    RedrawOff &operator=(const RedrawOff &) = delete;
    ~RedrawOff() { m_grid.ReDraw = true; }

private:
    Grid &m_grid;
};

/// Writes the current row of a record set into the grid. Column indices are looked up once.
class RowWriter {
public:
    RowWriter(const Recordset &rsData, std::span<const SearchColumn> columns, const Regional &regional)
        : m_rsData(rsData), m_regional(regional)
    {
        for (const SearchColumn &column : columns)
            m_cells.push_back({column.kind, rsData.fieldIndex(column.field),
                               column.second.empty() ? kNone : rsData.fieldIndex(column.second)});
    }

    void write(Grid &grid, std::int32_t row)
    {
        std::int16_t column = 0;
        for (const Cell &cell : m_cells) {
            ++column;
            if (cell.second != kNone)
                grid.setNumber(row, column, joined(number(cell.first), number(cell.second)));
            else if (cell.kind == Grid::CellKind::number)
                grid.setNumber(row, column, number(cell.first));
            else
                grid.setText(row, column, csNullRTrim(m_rsData.Value(cell.first), m_regional));
        }
    }

private:
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    struct Cell {
        Grid::CellKind kind;
        std::size_t first;
        std::size_t second;
    };

    [[nodiscard]] std::int32_t number(std::size_t place) const { return nNullToLong(m_rsData.Value(place)); }
    /// The rows of a list usually belong to one branch, so the last result is cached.
    [[nodiscard]] std::int32_t joined(std::int32_t first, std::int32_t second)
    {
        if (m_joinedText.empty() || first != m_first || second != m_second) {
            m_first = first;
            m_second = second;
            m_joinedText = formatText(first, "00", m_regional) + formatText(second, "00", m_regional);
            m_joined = toLong(Variant(m_joinedText));
        }
        return m_joined;
    }

    const Recordset &m_rsData;
    const Regional &m_regional;
    std::vector<Cell> m_cells;
    std::int32_t m_first = 0, m_second = 0, m_joined = 0;
    std::string m_joinedText;
};

} // namespace

/// The sequence from the first activation to the first list. -1 closes the window again.
std::int16_t SearchForm::open()
try {
    if (iMastDataLoad() != iGood) return iBad;
    {
        const RedrawOff off(spr_1ran);
        spr_1ran.setRowCount(0);
    }
    clearInfo();
    but_Act(0).Enabled = false;
    showFilter(m_edited);
    m_app.platform.windows.moveFocus(*this, in_SiboriID);
    return search();
} catch (const RuntimeError &error) {
    m_errStr = numberedText(error);
    systemErrorBox();
    return iBad;
}

std::int16_t SearchForm::iMastDataLoad()
try {
    constexpr const char *heading = "iMastDataLoad() でエラー";
    StartedSession own = startSession(m_app, heading);
    if (!own.isConnected()) return iBad;
    std::unique_ptr<Recordset> rsData = openRows(own, staffListSql(m_app), heading);
    if (!rsData) {
        systemErrorBox();
        return iBad;
    }
    if (rsData->isEndOfFile()) {
        m_app.platform.boxes.show(m_design.noStaffText, Icon::information);
        return iBad;
    }
    m_staff.clear();
    for (; !rsData->isEndOfFile(); rsData->MoveNext())
        m_staff.push_back({nNullToLong(rsData->Field("nIDNo")), csNullRTrim(rsData->Field("cName"), m_app.regional)});
    showStaff(m_staff);
    return iGood;
} catch (const RuntimeError &error) {
    m_errStr = numberedText(error);
    systemErrorBox();
    return iBad;
}

std::int16_t SearchForm::search()
{
    m_edited = readFilter();
    std::int16_t status = iBad;
    {
        const RedrawOff off(spr_1ran);
        m_app.platform.windows.processWaitingEvents();
        status = iDsp1ranSub();
    }
    if (status == iBad) systemErrorBox();
    return status;
}

std::int16_t SearchForm::iDsp1ranSub()
try {
    constexpr const char *heading = "iDsp1ranSub() でエラー";
    m_errStr.clear(); // otherwise an older error text would be shown as that of this search
    const std::string sql = statement(m_edited);
    m_inForce = m_edited;
    showFilter(m_inForce);
    clearList();

    StartedSession own = startSession(m_app, heading);
    if (!own.isConnected()) return iBad;
    std::unique_ptr<Recordset> rsData = openRows(own, sql, heading);
    if (!rsData) return iBad;
    if (rsData->isEndOfFile()) {
        m_app.platform.boxes.show(m_design.noRowText, Icon::information);
        return iGood;
    }
    fillGrid(*rsData);
    static_cast<void>(own.session->iCloseRecSet(rsData)); // the rows are already in the grid
    but_Act(0).Enabled = true;
    highlightSeled();
    writeInfo(m_inForce);
    return iGood;
} catch (const RuntimeError &error) {
    m_errStr = numberedText(error);
    return iBad;
}

std::unique_ptr<Recordset> SearchForm::openRows(StartedSession &own, const std::string &sql, const std::string &heading)
{
    std::unique_ptr<Recordset> rsData = m_app.platform.database.newRecordset();
    if (own.session->iOpenRecSet(*rsData, sql, adOpenForwardOnly, adLockReadOnly, adCmdText) == iGood) return rsData;
    m_errStr = headingText(heading, own.session->sErrMsg());
    return nullptr;
}

void SearchForm::clearList()
{
    spr_1ran.setRowCount(0);
    clearInfo();
    but_Act(0).Enabled = false;
}

void SearchForm::fillGrid(Recordset &rsData)
{
    RowWriter writer(rsData, m_design.columns, m_app.regional);
    std::int32_t row = 1;
    for (; !rsData.isEndOfFile(); rsData.MoveNext()) {
        if (spr_1ran.RowCount() < row) spr_1ran.setRowCount(row);
        writer.write(spr_1ran, row);
        ++row;
    }
    spr_1ran.setRowCount(row - 1);
}

void SearchForm::highlightSeled()
{
    if (m_seledCD <= 0) return;
    for (std::int32_t row = 1; row <= spr_1ran.RowCount(); ++row) {
        if (spr_1ran.number(row, m_design.numberColumn) != m_seledCD) continue;
        spr_1ran.ActiveRow = row;
        spr_1ran.showRow(row);
        return;
    }
}

SearchFilter SearchForm::readFilter() const
{
    SearchFilter filter;
    filter.name = txt_SiboriName.Text;
    filter.kana = txt_SiboriKana.Text;
    filter.includeEnded = m_endedCheck.Value;
    filter.number = nNullToLong(in_SiboriID.Value);
    return filter;
}

void SearchForm::showFilter(const SearchFilter &filter)
{
    txt_SiboriName.Text = rtrim(filter.name);
    txt_SiboriKana.Text = rtrim(filter.kana);
    m_endedCheck.Value = filter.includeEnded;
    in_SiboriID.Value = filter.number;
}

} // namespace inin
