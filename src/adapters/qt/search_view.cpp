#include "adapters/qt/form_window.h"
#include "adapters/qt/grid_places.h"
#include "adapters/qt/grid_view.h"
#include "adapters/qt/icons.h"
#include "adapters/qt/qt_text.h"
#include "adapters/qt/view_registry.h"

#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <span>

namespace inin::qt {

namespace {

/// The box of a condition, with its caption as a label to its left.
struct ConditionPlace {
    const char *control;
    int row;
    int column; ///< of the label; the box is in the next column
    int width;  ///< in characters
};
constexpr ConditionPlace kCommonConditions[] = {
    {"in_SiboriID", 0, 0, 10},
    {"txt_SiboriName", 0, 2, 16},
    {"txt_SiboriKana", 0, 4, 16},
};
// The rows follow the tab order.
constexpr int kPatientLastRow = 2;
constexpr int kStaffLastRow = 1;
constexpr ConditionPlace kPatientConditions[] = {{"imNum_StaffNo", kPatientLastRow, 0, 10}};
constexpr GridPlace kPatientPlaces[] = {
    {"chkEndKanja", 1, 1, 5},
    {"cbo_Sejutusha", kPatientLastRow, 2, 2, "担当の施術者"},
    {"btn_StaffSelect", kPatientLastRow, 4, 1, "施術者を検索"},
};
constexpr GridPlace kStaffPlaces[] = {{"chkEndSejutsuha", kStaffLastRow, 1, 5}};

/// The boxes from which the down key goes to the list. In a drop-down list and in options it changes the choice.
constexpr const char *kPatientBoxes[] = {"in_SiboriID", "txt_SiboriName", "txt_SiboriKana", "chkEndKanja",
                                         "imNum_StaffNo"};
constexpr const char *kStaffBoxes[] = {"in_SiboriID", "txt_SiboriName", "txt_SiboriKana", "chkEndSejutsuha"};

constexpr int kMargin = 10;
constexpr int kGap = 8;
constexpr int kCommandWidth = 110;
constexpr int kCommandHeight = 36;
constexpr int kConditionColumns = 6;

/// The parts of a search window from top to bottom.
struct SearchLayout {
    QGridLayout *conditions;
    QVBoxLayout *window;
};

void placeConditions(FormWindow &window, QGridLayout &grid, std::span<const ConditionPlace> places)
{
    for (const ConditionPlace &place : places) {
        QWidget &box = window.widget(place.control);
        const QString words = toQt(window.form().find(place.control)->Caption);
        auto *label = new QLabel(words, &window.content());
        label->setBuddy(&box);
        box.setAccessibleName(words);
        box.setMinimumWidth(place.width * box.fontMetrics().horizontalAdvance('0'));
        // Beside its box, also in a column that another row makes wider.
        if (place.column > 0) label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
        grid.addWidget(label, place.row, place.column);
        grid.addWidget(&box, place.row, place.column + 1);
    }
}

void placeWidgets(FormWindow &window, QGridLayout &grid, std::span<const GridPlace> places)
{
    for (const GridPlace &place : places) {
        QWidget &widget = window.widget(place.control);
        grid.addWidget(&widget, place.row, place.column, 1, place.columns);
        if (place.spoken != nullptr) widget.setAccessibleName(toQt(place.spoken));
    }
}

QHBoxLayout *commandRow(FormWindow &window)
{
    auto *row = new QHBoxLayout;
    row->setSpacing(kGap);
    row->addWidget(&window.widget("StatusBar1"), 1);
    for (const char *command : {"but_Act(0)", "but_Act(1)"}) {
        window.widget(command).setFixedSize(kCommandWidth, kCommandHeight);
        row->addWidget(&window.widget(command));
    }
    window.widgetAs<QPushButton>("but_Act(1)").setIcon(backIcon(window.palette()));
    return row;
}

/// The down key goes from a condition to the list, to its selected row or to its first.
void leadToList(FormWindow &window, std::span<const char *const> conditions)
{
    auto &list = window.widgetAs<GridView>("spr_1ran");
    for (const char *condition : conditions) {
        auto *down = new QShortcut(Qt::Key_Down, &window.widget(condition)); // owned by the box
        down->setContext(Qt::WidgetShortcut);
        QObject::connect(down, &QShortcut::activated, &list, [&list] { list.enterByKey(); });
    }
}

SearchLayout layOutCommon(FormWindow &window, int lastRow)
{
    window.setOpening(FormWindow::Opening::centred, FormWindow::Sizing::free);
    auto *all = new QVBoxLayout(&window.content()); // owned by the content, as everything in it
    all->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    all->setSpacing(kGap);
    auto *conditions = new QGridLayout;
    conditions->setHorizontalSpacing(kGap);
    conditions->setVerticalSpacing(kGap);
    conditions->setColumnStretch(kConditionColumns, 1);
    all->addLayout(conditions);
    placeConditions(window, *conditions, kCommonConditions);
    conditions->addWidget(&window.widget("but_Read"), lastRow, kConditionColumns + 1);
    window.widget("but_Read").setMinimumSize(kCommandWidth, kCommandHeight);
    all->addWidget(&window.widget("spr_1ran"), 1);
    window.widget("spr_1ran").setAccessibleName(QObject::tr("一覧"));
    return {conditions, all};
}

/// The kinds of treatment are in one row, after the staff.
void placeKinds(FormWindow &window, QGridLayout &grid)
{
    auto *kinds = new QHBoxLayout;
    kinds->setSpacing(kGap);
    for (const char *kind : {"opt_SejutsuKubun(0)", "opt_SejutsuKubun(1)", "opt_SejutsuKubun(2)"})
        kinds->addWidget(&window.widget(kind));
    kinds->addStretch(1);
    grid.addLayout(kinds, kPatientLastRow, kConditionColumns - 1, 1, 2);
}

} // namespace

void layOutPatientSearch(FormWindow &window)
{
    const SearchLayout layout = layOutCommon(window, kPatientLastRow);
    placeConditions(window, *layout.conditions, kPatientConditions);
    leadToList(window, kPatientBoxes);
    placeWidgets(window, *layout.conditions, kPatientPlaces);
    placeKinds(window, *layout.conditions);
    auto &info = window.widgetAs<QLabel>("lbl_1ranInf");
    info.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    layout.window->addWidget(&info);
    layout.window->addLayout(commandRow(window));
    window.setPreferredSize({1120, 640});
}

void layOutStaffSearch(FormWindow &window)
{
    const SearchLayout layout = layOutCommon(window, kStaffLastRow);
    leadToList(window, kStaffBoxes);
    placeWidgets(window, *layout.conditions, kStaffPlaces);
    layout.window->addLayout(commandRow(window));
    window.setPreferredSize({860, 520});
}

} // namespace inin::qt
