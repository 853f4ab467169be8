#include "viewer/window/ledger_dialog.h"

#include "viewer/window/help_window.h"
#include "viewer/window/qt_text.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

namespace inin::viewer {

using namespace Qt::StringLiterals;

LedgerDialog::LedgerDialog(const LedgerSettings &settings, QWidget *parent)
    : QDialog(parent), m_off(new QCheckBox(u"台帳を使わない(&N)"_s, this)), m_months(new QSpinBox(this)),
      m_place(new QLineEdit(this)), m_path(nullptr), m_result(nullptr), m_erase(nullptr)
{
    setObjectName(u"ledgerDialog"_s);
    addHelpKey(this);
    setWindowTitle(u"台帳の設定"_s);
    m_off->setObjectName(u"ledgerOff"_s);
    m_off->setChecked(!settings.isUsed);
    m_months->setObjectName(u"ledgerMonths"_s);
    m_months->setAccessibleName(u"記録を残す月数"_s);
    m_months->setRange(kFewestMonths, kMostMonths);
    m_months->setSuffix(u" か月"_s);
    m_months->setValue(settings.months);
    m_place->setObjectName(u"ledgerPlace"_s);
    m_place->setAccessibleName(u"台帳を置くフォルダー"_s);
    m_place->setPlaceholderText(u"このパソコンの、自分用のフォルダー"_s);
    m_place->setText(qtText(settings.place));
    auto *const browse = new QPushButton(u"参照(&B)…"_s, this);
    browse->setObjectName(u"ledgerBrowse"_s);
    browse->setAutoDefault(false);
    auto *const place = new QHBoxLayout;
    place->addWidget(m_place, 1);
    place->addWidget(browse);
    m_path = new QLabel(this);
    m_path->setObjectName(u"ledgerPath"_s);
    m_path->setWordWrap(true);
    m_erase = new QPushButton(u"台帳を消去(&E)…"_s, this);
    m_erase->setObjectName(u"ledgerErase"_s);
    m_erase->setAutoDefault(false);
    m_result = new QLabel(this);
    m_result->setObjectName(u"ledgerResult"_s);
    m_result->setWordWrap(true);
    m_result->hide();
    auto *const erase = new QHBoxLayout;
    erase->addWidget(m_erase);
    erase->addWidget(m_result, 1);
    erase->addStretch();
    auto *const buttons = new QDialogButtonBox(this);
    buttons->addButton(u"OK"_s, QDialogButtonBox::AcceptRole)->setDefault(true);
    buttons->addButton(u"キャンセル"_s, QDialogButtonBox::RejectRole);
    auto *const form = new QFormLayout(this);
    form->addRow(m_off);
    form->addRow(u"記録を残す期間(&K)"_s, m_months);
    form->addRow(u"台帳を置くフォルダー(&F)"_s, place);
    qobject_cast<QLabel *>(form->labelForField(place))->setBuddy(m_place);
    form->addRow(m_path);
    form->addRow(erase);
    form->addRow(buttons);
    constexpr int kWidth = 36;
    m_place->setMinimumWidth(fontMetrics().horizontalAdvance(u'漢') * kWidth);
    QObject::connect(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
    QObject::connect(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
    QObject::connect(m_off, &QCheckBox::toggled, this, [this] { showPath(); });
    QObject::connect(m_place, &QLineEdit::textChanged, this, [this] { showPath(); });
    QObject::connect(browse, &QPushButton::clicked, this, [this] {
        if (const QString folder = askFolder ? askFolder() : QString(); !folder.isEmpty()) m_place->setText(folder);
    });
    QObject::connect(m_erase, &QPushButton::clicked, this, [this] {
        const QString result = onErase ? onErase() : QString();
        m_result->setText(result);
        m_result->setVisible(!result.isEmpty());
    });
    m_erase->setEnabled(settings.isUsed);
    showPath();
}

LedgerSettings LedgerDialog::settings() const
{
    return {!m_off->isChecked(), utf8Text(m_place->text().trimmed()), m_months->value()};
}

void LedgerDialog::setPathOf(std::function<QString(const LedgerSettings &)> pathOf)
{
    m_pathOf = std::move(pathOf);
    showPath();
}

void LedgerDialog::showPath()
{
    const QString path = m_pathOf ? m_pathOf(settings()) : QString();
    m_path->setText(path.isEmpty() ? u"台帳には何も記録しません。"_s
                                   : u"台帳のファイル：%1"_s.arg(QDir::toNativeSeparators(path)));
}

} // namespace inin::viewer
