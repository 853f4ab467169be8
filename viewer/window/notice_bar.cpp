#include "viewer/window/notice_bar.h"

#include "viewer/window/viewer_style.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

namespace inin::viewer {

using namespace Qt::StringLiterals;

NoticeBar::NoticeBar(QWidget *parent) : QFrame(parent), m_text(new QLabel(this)), m_action(new QPushButton(this))
{
    setObjectName(u"noticeBar"_s);
    setAccessibleName(u"お知らせ"_s);
    setAutoFillBackground(true);
    setPalette(noticePalette(palette()));
    m_text->setObjectName(u"noticeText"_s);
    m_text->setWordWrap(true);
    m_action->setObjectName(u"noticeAction"_s);
    m_action->setAccessibleName(u"お知らせの操作"_s);
    auto *const away = new QPushButton(u"閉じる(&X)"_s, this);
    away->setObjectName(u"noticeClose"_s);
    away->setAccessibleName(u"お知らせを閉じる"_s);
    QObject::connect(away, &QPushButton::clicked, this, [this] { hide(); });
    QObject::connect(m_action, &QPushButton::clicked, this, [this] {
        if (const auto action = m_onAction) action();
    });
    auto *const layout = new QHBoxLayout(this);
    layout->addWidget(m_text, 1);
    layout->addWidget(m_action);
    layout->addWidget(away);
    hide();
}

void NoticeBar::showNotice(const QString &text, const QString &action, std::function<void()> onAction)
{
    m_text->setText(text);
    m_action->setText(action);
    m_action->setAccessibleName(action);
    m_action->setVisible(!action.isEmpty());
    m_onAction = std::move(onAction);
    setAccessibleDescription(text);
    show();
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void NoticeBar::clear()
{
    m_text->clear();
    hide();
}

QString NoticeBar::text() const
{
    return m_text->text();
}

} // namespace inin::viewer
