#include "adapters/qt/elided_label.h"
#include "adapters/qt/form_window.h"
#include "adapters/qt/grid_places.h"
#include "adapters/qt/icons.h"
#include "adapters/qt/number_edit.h"
#include "adapters/qt/units.h"
#include "adapters/qt/view_registry.h"

#include <QComboBox>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

#include <algorithm>

namespace inin::qt {

namespace {

/// The frames are stacked from top to bottom; twips.
struct FramePlace {
    const char *frame;
    int top;
    int height;
};
constexpr FramePlace kFrames[] = {
    {"Frame3", 120, 1495}, {"frmObject", 1720, 1515}, {"fraJisseki(1)", 3280, 2985},
    {"Frame2", 6310, 735}, {"Frame1", 7120, 1695},    {"Frame4", 8940, 855},
};
constexpr int kFrameLeft = 120;
constexpr int kFrameWidth = 6795;
constexpr int kBarTop = 9990;
constexpr int kBarHeight = 1035;
constexpr int kCommandWidth = 1455;
constexpr int kCommandHeight = 735;
constexpr int kIcon = 24; // pixels, also below
constexpr int kCommandMargin = 16;

constexpr GridPlace kPlaces[] = {
    {"optPrint(0)", 0, 0},
    {"optPrint(1)", 1, 0},
    {"optPrint(2)", 2, 0},
    {"optObject(0)", 0, 0},
    {"optObject(1)", 1, 0},
    {"optObject(2)", 2, 0},
    {"Label1", 0, 0},
    {"btn_StaffSelect", 0, 1, 1, "施術者を検索"},
    {"imNum_StaffNo", 0, 2, 1, "施術者の番号"},
    {"cbSejyutsu", 0, 3, 1, "施術者"},
    {"chkChushi", 1, 1, 3},
    {"Label7", 2, 0},
    {"btn_KanjaSelect", 2, 1, 1, "出力利用者を検索"},
    {"imNum_CD", 2, 2, 1, "出力利用者の番号"},
    {"lbl_SelKanja", 2, 3, 1, "出力利用者の氏名"},
    {"chkExpireDay", 3, 1, 3},
    {"optTgtDate(0)", 4, 0},
    {"imD_Out", 4, 1, 2, "対象月"},
    {"optTgtDate(1)", 5, 0},
    {"imD_LastDay", 5, 1, 2, "最終施術日"},
    {"optTgtDate(2)", 5, 3},
    {"Label5", 6, 0},
    {"cmbHoken", 6, 1, 2, "保険種別"},
    {"optTrust(0)", 0, 0},
    {"optTrust(1)", 0, 1},
    {"optDspPeriod(0)", 0, 0, 4},
    {"optDspPeriod(1)", 1, 0, 4},
    {"imSetDateFrom", 2, 0, 1, "委任期間の開始日"},
    {"lbl001(0)", 2, 1},
    {"imSetDateTo", 2, 2, 1, "委任期間の終了日"},
    {"lbl001(1)", 2, 3},
    {"iTPeriodMonth", 3, 0},
    {"inPeriodFrom", 3, 1, 1, "開始の日"},
    {"Label4", 3, 2},
    {"Label2", 3, 3},
    {"inPeriodTo", 3, 4, 1, "終了の日"},
    {"Label3", 3, 5},
    {"optSyomei(0)", 0, 0},
    {"optSyomei(1)", 0, 1},
    {"imSyomei", 0, 2, 1, "署名日"},
    {"btnPrint(0)", 0, 1},
    {"btnPrint(1)", 0, 2},
    {"btnPrint(6)", 0, 3},
};

/// The column of a grid that receives the remaining width, so that all others are left-aligned.
struct FreeColumn {
    const char *frame;
    int column;
};
constexpr FreeColumn kFreeColumns[] = {{"fraJisseki(1)", 3}, {"Frame2", 2}, {"Frame1", 4}, {"Frame4", 3}};

void dressFilters(FormWindow &window)
{
    constexpr int kSearchMargin = 30;
    constexpr int kDayWidth = 56;
    for (const char *search : {"btn_StaffSelect", "btn_KanjaSelect"}) {
        auto &button = window.widgetAs<QPushButton>(search);
        button.setFixedWidth(button.fontMetrics().horizontalAdvance(button.text()) + kSearchMargin);
    }
    for (const char *day : {"inPeriodFrom", "inPeriodTo"}) window.widget(day).setFixedWidth(kDayWidth);
    auto &name = window.widgetAs<QLabel>("lbl_SelKanja");
    name.setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    name.setMinimumHeight(window.widget("imNum_CD").sizeHint().height());
    window.widgetAs<QLabel>("iTPeriodMonth").setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    // A long name must not widen the window.
    for (const char *list : {"cbSejyutsu", "cmbHoken"}) {
        auto &combo = window.widgetAs<QComboBox>(list);
        combo.setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        combo.setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
        combo.setMinimumContentsLength(8);
    }
    name.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
}

void dressCommands(FormWindow &window)
{
    struct Command {
        const char *button;
        QIcon (*icon)(const QPalette &);
    };
    constexpr Command kCommands[] = {
        {"btnPrint(0)", printIcon}, {"btnPrint(1)", previewIcon}, {"btnPrint(6)", backIcon}};
    for (const Command &command : kCommands) {
        auto &button = window.widgetAs<QPushButton>(command.button);
        button.setIcon(command.icon(button.palette()));
        button.setIconSize({kIcon, kIcon});
        // A larger font widens the button instead of cutting its text.
        const int text = button.fontMetrics().horizontalAdvance(button.text()) + kIcon + kCommandMargin;
        button.setFixedSize(std::max(pixels(kCommandWidth), text), pixels(kCommandHeight));
    }
    QGridLayout &bar = gridOfFrame(window, "Picture1");
    bar.setColumnStretch(0, 1);
    bar.setColumnStretch(4, 1);
    bar.setHorizontalSpacing(16);
}

/// Places the frames one below the other, and the command buttons in a bar that is not scrolled with them. A font larger than the design size makes a frame higher and moves the frames
/// below it down, so that text is never cut.
void stackFrames(FormWindow &window)
{
    int moved = 0;
    int wider = 0;
    for (const FramePlace &place : kFrames)
        wider = std::max(wider, window.widget(place.frame).minimumSizeHint().width() - pixels(kFrameWidth));
    for (const FramePlace &place : kFrames) {
        QWidget &frame = window.widget(place.frame);
        const int height = std::max(pixels(place.height), frame.minimumSizeHint().height());
        frame.setGeometry(pixels(kFrameLeft), pixels(place.top) + moved, pixels(kFrameWidth) + wider, height);
        moved += height - pixels(place.height);
    }
    window.content().setMinimumSize(pixels(window.form().Width) + wider, pixels(kBarTop) + moved);
    window.widget("Picture1").setFixedHeight(pixels(kBarHeight));
    window.setFoot(window.widget("Picture1"));
}

/// Shows the name in grey while it belongs to another number than the typed one.
class NameOfNumber : public QObject {
public:
    NameOfNumber(NumberEdit &box, ElidedLabel &name, Label &caption)
        : QObject(&box), m_box(box), m_name(name), m_named(box.text())
    {
        connect(&box, &QLineEdit::textEdited, this, [this] { m_isTyping = true; });
        connect(&box, &QLineEdit::textChanged, this, [this](const QString &text) {
            if (!m_isTyping) m_named = text; // the program assigns number and name together
            m_isTyping = false;
            show();
        });
        caption.watch([guard = QPointer<NameOfNumber>(this)] {
            if (guard) guard->takeName();
        });
    }

private:
    /// A new name belongs to the present number. The record reports other changes, too.
    void takeName()
    {
        if (m_name.text() == m_shown) return;
        m_shown = m_name.text();
        m_named = m_box.text();
        show();
    }
    void show()
    {
        const bool isOther = m_box.text() != m_named && !m_name.text().isEmpty();
        m_name.setForegroundRole(isOther ? QPalette::PlaceholderText : QPalette::WindowText);
        m_name.setToolTip(isOther ? tr("番号を変える前の利用者の名前です。") : QString());
    }

    NumberEdit &m_box;
    ElidedLabel &m_name;
    QString m_named; ///< the number that the name belongs to
    QString m_shown; ///< the name
    bool m_isTyping = false;
};

} // namespace

void layOutPrintInin(FormWindow &window)
{
    window.setOpening(FormWindow::Opening::centred, FormWindow::Sizing::fixed);
    placeInGrids(window, kPlaces);
    for (const FreeColumn &free : kFreeColumns) gridOfFrame(window, free.frame).setColumnStretch(free.column, 1);
    dressFilters(window);
    dressCommands(window);
    stackFrames(window);
    auto &number = window.widgetAs<NumberEdit>("imNum_CD");
    new NameOfNumber(number, window.widgetAs<ElidedLabel>("lbl_SelKanja"), // owned by the box
                     dynamic_cast<Label &>(*window.form().find("lbl_SelKanja")));
}

} // namespace inin::qt
