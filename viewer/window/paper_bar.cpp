#include "viewer/window/paper_bar.h"

#include "viewer/window/viewer_style.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

#include <initializer_list>

namespace inin::viewer {

using namespace Qt::StringLiterals;

PaperBar::PaperBar(QWidget *parent) : QFrame(parent), m_text(new QLabel(this)), m_number(nullptr)
{
    setObjectName(u"paperBar"_s);
    setAccessibleName(u"印刷した紙の確認"_s);
    setAutoFillBackground(true);
    setPalette(noticePalette(palette()));
    m_text->setObjectName(u"paperText"_s);
    m_text->setWordWrap(true);
    auto *const layout = new QHBoxLayout(this);
    layout->addWidget(m_text, 1);
    const auto button = [&](const char *name, const QString &text, std::function<void()> onClick) {
        auto *const added = new QPushButton(text, this);
        added->setObjectName(QLatin1String(name));
        added->setAutoDefault(true); // the Enter key presses it, also outside of a dialog
        QObject::connect(added, &QPushButton::clicked, this, [onClick = std::move(onClick)] { onClick(); });
        layout->addWidget(added);
        return added;
    };
    m_all = button("paperAll", u"すべて出た(&A)"_s, [this] {
        if (onAllOut) onAllOut();
    });
    m_partly = button("paperPartly", u"途中まで出た(&T)…"_s, [this] {
        showState(State::number);
        announce(u"最後に正しく出た番号を入れてください。"_s);
        m_number->setFocus(Qt::OtherFocusReason);
        m_number->selectAll();
    });
    m_number = new QSpinBox(this);
    m_number->setObjectName(u"paperNumber"_s);
    m_number->setAccessibleName(u"最後に正しく出た番号"_s);
    m_number->setSuffix(u" 番"_s);
    m_number->setSpecialValueText(u"一通も出ていない"_s);
    layout->addWidget(m_number);
    m_set = button("paperSet", u"決定(&S)"_s, [this] {
        const bool isNone = m_number->value() == m_number->minimum();
        if (onOutUpTo) onOutUpTo(isNone ? std::nullopt : std::optional(m_number->value()));
    });
    m_back = button("paperBack", u"戻る(&Z)"_s, [this] {
        showState(State::question);
        announce(m_question);
        m_all->setFocus(Qt::OtherFocusReason);
    });
    m_rest = button("paperRest", {}, [this] {
        hide();
        if (onPrintRest) onPrintRest();
    });
    m_rest->setAccessibleName(u"残りを印刷"_s);
    m_close = button("paperClose", u"閉じる(&Q)"_s, [this] {
        hide();
        if (onClose) onClose();
    });
    QObject::connect(m_number->findChild<QLineEdit *>(), &QLineEdit::returnPressed, m_set, [this] { m_set->click(); });
    hide();
}

void PaperBar::showState(State state)
{
    m_state = state;
    for (QWidget *const widget : {m_all, m_partly}) widget->setVisible(state == State::question);
    for (QWidget *const widget : std::initializer_list<QWidget *>{m_number, m_set, m_back})
        widget->setVisible(state == State::number);
    m_rest->setVisible(state == State::rest && !m_rest->text().isEmpty());
    m_close->setVisible(state == State::rest);
    setVisible(true);
}

void PaperBar::announce(const QString &text)
{
    m_text->setText(text);
    setAccessibleDescription(text);
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
}

void PaperBar::ask(const QString &text, const SentNumbers &numbers)
{
    m_number->setRange(numbers.least - 1, numbers.greatest);
    m_number->setValue(numbers.last);
    m_question = text;
    showState(State::question);
    announce(text);
}

void PaperBar::showRest(const QString &text, const QString &action)
{
    m_rest->setText(action);
    showState(State::rest);
    announce(text);
    (action.isEmpty() ? m_close : m_rest)->setFocus(Qt::OtherFocusReason);
}

QString PaperBar::text() const
{
    return m_text->text();
}

} // namespace inin::viewer
