#include "adapters/qt/date_popup.h"

#include "adapters/qt/qt_text.h"

#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QToolButton>

#include <algorithm>

namespace inin::qt {

namespace {

QToolButton *pageButton(Qt::ArrowType arrow, const char *name, QWidget *parent)
{
    auto *button = new QToolButton(parent);
    button->setArrowType(arrow);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    button->setAccessibleName(toQt(name));
    button->setToolTip(toQt(name));
    return button;
}

} // namespace

DatePopup::DatePopup(const Captions &captions, Date today, QWidget *parent)
    : QFrame(parent, Qt::Popup), m_layout(new QGridLayout(this)), m_title(new QLabel(this)),
      m_today(new QPushButton(toQt(captions.today), this))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setFrameStyle(QFrame::StyledPanel);
    setObjectName("calendar");
    setAccessibleName(tr("カレンダー"));
    m_title->setObjectName("calendarTitle");
    m_title->setAlignment(Qt::AlignCenter);
    m_today->setObjectName("calendarToday");
    m_today->setAutoDefault(false);
    m_today->installEventFilter(this);
    QToolButton *before = pageButton(Qt::LeftArrow, captions.before, this);
    QToolButton *after = pageButton(Qt::RightArrow, captions.after, this);
    connect(before, &QToolButton::clicked, this, [this] { turnPage(-1); });
    connect(after, &QToolButton::clicked, this, [this] { turnPage(1); });
    connect(m_today, &QPushButton::clicked, this, [this, today] { choose(today); });
    m_layout->setContentsMargins(4, 4, 4, 4);
    m_layout->addWidget(before, 0, 0);
    m_layout->addWidget(m_title, 0, 1);
    m_layout->addWidget(after, 0, 2);
    m_layout->setColumnStretch(1, 1);
    m_layout->addWidget(m_today, 2, 0, 1, 3, Qt::AlignHCenter);
}

void DatePopup::setPage(QWidget &page)
{
    m_layout->addWidget(&page, 1, 0, 1, 3);
    for (QWidget *child : page.findChildren<QWidget *>()) child->installEventFilter(this);
    setTabOrder(&page, m_today);
    setFocusProxy(&page);
}

void DatePopup::setTitle(const std::string &title)
{
    m_title->setText(toQt(title));
}

void DatePopup::openBelow(const QWidget &box)
{
    adjustSize();
    const QRect screen = box.screen()->availableGeometry();
    QPoint place = box.mapToGlobal(QPoint(0, box.height()));
    if (place.y() + height() > screen.bottom()) place = box.mapToGlobal(QPoint(0, -height()));
    place.setX(std::clamp(place.x(), screen.left(), std::max(screen.left(), screen.right() - width())));
    move(place);
    show();
    focusProxy()->setFocus(Qt::PopupFocusReason);
}

void DatePopup::choose(Date day)
{
    const auto notify = onChosen;
    close();
    if (notify) notify(day);
}

bool DatePopup::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::KeyPress) return QFrame::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent *>(event)->key();
    if (key == Qt::Key_Escape) return close();
    const bool isReturn = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (watched == m_today && isReturn) {
        m_today->click();
        return true;
    }
    return watched == m_today ? QFrame::eventFilter(watched, event) : dealKey(key);
}

} // namespace inin::qt
