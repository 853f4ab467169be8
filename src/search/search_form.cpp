#include "search/search_form.h"

#include "common/helpers.h"
#include "platform/key_codes.h"
#include "runtime/text.h"
#include "shell/error_box.h"
#include "shell/online_help.h"

namespace inin {

namespace {

constexpr std::int16_t kChoose = 0;
constexpr std::int16_t kLeave = 1;

std::vector<Grid::Column> gridColumns(std::span<const SearchColumn> columns)
{
    std::vector<Grid::Column> result;
    for (const SearchColumn &column : columns) result.push_back({column.header, column.kind, column.width});
    return result;
}

/// From these controls the return key moves to the next one; in a grid or on a button it does nothing.
bool goesOnByReturn(const Control *control)
{
    return dynamic_cast<const TextBox *>(control) != nullptr || dynamic_cast<const NumberBox *>(control) != nullptr ||
           dynamic_cast<const OptionButton *>(control) != nullptr ||
           dynamic_cast<const CheckBox *>(control) != nullptr || dynamic_cast<const ListBox *>(control) != nullptr;
}

} // namespace

SearchForm::SearchForm(App &app, const SearchDesign &design)
    : Form(design.formName), spr_1ran("spr_1ran", gridColumns(design.columns)), m_endedCheck(design.endedCheckName),
      m_app(app), m_design(design)
{
    Caption = design.Caption;
    m_endedCheck.Caption = design.endedCheckCaption;
    wireEvents();
}

void SearchForm::wireEvents()
{
    but_Read.onClick = [this] { but_Read_Click(); };
    but_Act.onClick = [this](std::int16_t Index) { but_Act_Click(Index); };
    spr_1ran.onDblClick = [this](std::int32_t Row) { spr_1ran_DblClick(Row); };
    mnF04.onClick = [this] { shortcut("mnF04_Click()でエラー", [this] { but_Read_Click(); }); };
    mnF05.onClick = [this] { shortcut("mnF05_Click()でエラー", [this] { but_Act_Click(kChoose); }); };
    mnF12.onClick = [this] { shortcut("mnF12_Click()でエラー", [this] { but_Act_Click(kLeave); }); };
    mnDispHelp.onClick = [this] { vDispHelp(m_app, kFirstHelpPage); };
}

void SearchForm::addStop(Control &control)
{
    control.TabIndex = m_nextTab++;
    add(control);
}

/// The caption of a box is the text of the label that a view shows next to it.
void SearchForm::addLabelled(Control &control, const char *caption)
{
    control.Caption = caption;
    addStop(control);
}

void SearchForm::addCommon()
{
    addLabelled(in_SiboriID, "ID No.");
    addLabelled(txt_SiboriName, m_design.columns[static_cast<std::size_t>(m_design.nameColumn) - 1].header);
    addLabelled(txt_SiboriKana, m_design.columns[static_cast<std::size_t>(m_design.nameColumn)].header);
    addStop(m_endedCheck);
}

void SearchForm::addCommands()
{
    addLabelled(but_Read, "抽出");
    addStop(spr_1ran);
    addLabelled(but_Act(kChoose), "確 定");
    addLabelled(but_Act(kLeave), "戻る");
    add(StatusBar1);
    mnF04.Caption = "抽出";
    mnF05.Caption = "確定";
    mnF12.Caption = "戻る";
    mnHelp.Caption = "ヘルプ(&H)";
    mnDispHelp.Caption = "オンラインヘルプ(&M)";
    for (MenuEntry *entry : {&mnF04, &mnF05, &mnF12, &mnHelp}) add(*entry);
    add(mnDispHelp, &mnHelp);
}

void SearchForm::prepare(std::int32_t nSeledCode, const SearchFilter &filter)
{
    m_seledCD = nSeledCode;
    m_inForce = filter;
    m_edited = filter;
}

void SearchForm::Form_Load()
{
    m_isChosen = false;
    m_isFirstActivation = true;
    trapped([this] { readSettings(); });
}

void SearchForm::Form_Activate()
{
    // The window is activated again after each box and each window that it opened.
    if (!m_isFirstActivation) return;
    m_isFirstActivation = false;
    const auto openedUnderGuard = [this] {
        const BusyFlag::Hold hold(m_busy);
        return hold ? open() : iGood;
    };
    if (openedUnderGuard() != iGood) unload();
}

void SearchForm::Form_QueryUnload(std::int16_t &Cancel, bool byControlBox)
{
    if (byControlBox && m_busy.isTaken()) Cancel = 1;
}

void SearchForm::trapped(const std::function<void()> &step)
try {
    step();
} catch (const RuntimeError &error) {
    m_errStr = numberedText(error);
    systemErrorBox();
}

void SearchForm::whenFree(const std::function<void()> &step)
{
    const BusyFlag::Hold hold(m_busy);
    if (hold) trapped(step);
}

void SearchForm::shortcut(const char *heading, const std::function<void()> &click)
try {
    click();
} catch (const RuntimeError &error) {
    // An error here occurred while another failure was being reported.
    headingBox(m_app, heading, numberLineText(error));
}

void SearchForm::systemErrorBox()
{
    for (int beeps = 0; beeps < 3; ++beeps) m_app.platform.windows.beep();
    const std::string text = std::string("システムエラーが発生しました！").append(kCr).append(kCr).append(m_errStr);
    m_app.platform.boxes.show(text, Icon::critical);
}

void SearchForm::but_Read_Click()
{
    // The search has already shown its failure.
    whenFree([this] { static_cast<void>(search()); });
}

void SearchForm::but_Act_Click(std::int16_t Index)
{
    whenFree([this, Index] {
        if (Index == kChoose) return vWhenSeledOK();
        m_isChosen = false;
        unload();
    });
}

void SearchForm::spr_1ran_DblClick(std::int32_t Row)
{
    whenFree([this, Row] {
        if (Row > 0) vWhenSeledOK(Row);
    });
}

void SearchForm::vWhenSeledOK(std::optional<std::int32_t> nSeledRow)
{
    const std::int32_t row = nSeledRow.value_or(spr_1ran.ActiveRow);
    if (row < 1) {
        m_app.platform.windows.beep();
        m_app.platform.boxes.show("有効な行が選択されていません！", Icon::exclamation);
        return;
    }
    if (m_design.areaColumn > 0) m_area = spr_1ran.number(row, m_design.areaColumn);
    m_seledCD = spr_1ran.number(row, m_design.numberColumn);
    m_seledName = spr_1ran.text(row, m_design.nameColumn);
    m_isChosen = true;
    unload();
}

void SearchForm::Form_KeyDown(std::int16_t &KeyCode)
{
    // If the menu entry is disabled, the key still closes the window.
    if (KeyCode == kF12Key) shortcut("フォームKeyDown()でエラー", [this] { but_Act_Click(kLeave); });
}

void SearchForm::Form_KeyPress(std::int16_t &KeyAscii)
{
    const BusyFlag::Hold hold(m_busy);
    const bool isReturn = KeyAscii == kReturnKey;
    if (!hold || isReturn) KeyAscii = 0;
    if (hold && isReturn) trapped([this] { returnKey(); });
}

/// The return key moves through the boxes like the tab key.
void SearchForm::returnKey()
{
    Windows &windows = m_app.platform.windows;
    const Control *active = windows.activeControl(*this);
    if (!confirmEntry(active) || !goesOnByReturn(active)) return;
    windows.sendTab(*this);
    windows.processWaitingEvents();
}

std::vector<std::pair<std::string, Variant>> SearchForm::fields() const
{
    return {{"CsErrStr", m_errStr}, {"nSeledCD", m_seledCD}, {"csSeledName", m_seledName}, {"iArea", m_area}};
}

} // namespace inin
