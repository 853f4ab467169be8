#include "adapters/qt/form_window.h"
#include "adapters/qt/grid_places.h"
#include "adapters/qt/open_list.h"
#include "adapters/qt/qt_text.h"
#include "adapters/qt/view_registry.h"

#include <QComboBox>
#include <QGridLayout>
#include <QStyle>

namespace inin::qt {

namespace {

constexpr int kColumns = 3;
constexpr GridPlace kPlaces[] = {
    {"Label1", 0, 0, kColumns},
    {"drlDrive", 1, 0, kColumns, "ドライブ"},
    {"dilFolder", 2, 0, kColumns, "フォルダ"},
    {"cmdOK", 3, 1},
    {"cmdCancel", 3, 2},
};
constexpr int kMargin = 12;
constexpr int kGap = 8;
constexpr int kListWidth = 340;
constexpr int kListHeight = 260;
constexpr int kButtonWidth = 100;
constexpr int kButtonHeight = 30;

/// Indents each folder below its parent. The open folder and its ancestors have the icon of an open folder.
void dressFolder(QListWidgetItem &item, const ListBox &folders, int index)
{
    constexpr qsizetype kIndent = 2;
    const qsizetype depth = folders.ItemData(static_cast<std::int16_t>(index));
    const bool isAbove = depth == index;
    const QStyle *style = item.listWidget()->style();
    item.setIcon(style->standardIcon(isAbove ? QStyle::SP_DirOpenIcon : QStyle::SP_DirClosedIcon));
    item.setText(QString(depth * kIndent, QChar(QChar::Nbsp)) + item.text());
}

} // namespace

void layOutSelFolder(FormWindow &window)
{
    window.setOpening(FormWindow::Opening::centred, FormWindow::Sizing::free);
    placeInGrids(window, kPlaces);
    auto &grid = dynamic_cast<QGridLayout &>(*window.content().layout());
    grid.setContentsMargins(kMargin, kMargin, kMargin, kMargin);
    grid.setSpacing(kGap);
    grid.setColumnStretch(0, 1);
    grid.setRowStretch(2, 1);
    auto &folders = dynamic_cast<OpenList &>(window.widget("dilFolder"));
    const Control *record = window.form().find("dilFolder");
    folders.setDress(dynamic_cast<const ListBox &>(*record), dressFolder);
    folders.setMinimumSize(kListWidth, kListHeight);
    for (const char *button : {"cmdOK", "cmdCancel"}) window.widget(button).setMinimumSize(kButtonWidth, kButtonHeight);
}

} // namespace inin::qt
