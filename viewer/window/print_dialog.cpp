#include "viewer/window/print_dialog.h"

#include "viewer/document/letter_ticks.h"
#include "viewer/window/arrangement_box.h"
#include "viewer/window/help_window.h"
#include "viewer/window/offset_box.h"
#include "viewer/window/qt_text.h"
#include "viewer/window/range_box.h"
#include "viewer/window/viewer_style.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QWheelEvent>

#include <algorithm>
#include <iterator>

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMaxCopies = 99, kMaxPerJob = 10000, kUsualPerJob = 50;

struct DuplexChoice {
    const char *name; ///< in the settings
    const char *text;
    /// Empty for the printer's own setting.
    std::optional<QPrinter::DuplexMode> mode;
};
constexpr DuplexChoice kDuplex[] = {
    {"", "プリンターの設定どおり", std::nullopt},
    {"oneSided", "片面", QPrinter::DuplexNone},
    {"longEdge", "両面（長辺とじ）", QPrinter::DuplexLongSide},
    {"shortEdge", "両面（短辺とじ）", QPrinter::DuplexShortSide},
};

const char *duplexText(QPrinter::DuplexMode mode)
{
    for (const DuplexChoice &choice : kDuplex)
        if (choice.mode == mode) return choice.text;
    return "自動";
}

template <class Widget> Widget *named(Widget *widget, const char *name, const QString &accessible)
{
    widget->setObjectName(QLatin1String(name));
    widget->setAccessibleName(accessible);
    return widget;
}

/// A number box that ignores the wheel unless it has the focus: scrolling past it must not choose separate jobs.
class LettersPerJobBox : public QSpinBox {
public:
    explicit LettersPerJobBox(QWidget *parent) : QSpinBox(parent) { setFocusPolicy(Qt::StrongFocus); }

protected:
    void wheelEvent(QWheelEvent *event) override
    {
        if (hasFocus())
            QSpinBox::wheelEvent(event);
        else
            event->ignore();
    }
};

} // namespace

PrintDialog::PrintDialog(LetterTicks &ticks, ViewerSettings &settings, std::vector<PrinterChoice> printers,
                         QWidget *parent)
    : QDialog(parent), m_ticks(ticks), m_settings(settings), m_printers(std::move(printers)),
      m_notices(new QLabel(this)), m_note(new QLabel(this))
{
    setObjectName(u"printDialog"_s);
    addHelpKey(this);
    setWindowTitle(u"印刷"_s);
    // The Tab key follows the order in which widgets are created: create them in screen order.
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(printerGroup());
    m_jobs = jobGroup();
    layout->addWidget(m_jobs);
    m_arrangement = new ArrangementBox(settings.arrangement(), this);
    layout->addWidget(m_arrangement);
    m_offset = new OffsetBox(this);
    m_offset->onRulerPage = [this] { printRulers(); };
    layout->addWidget(m_offset);
    layout->addWidget(m_notices);
    layout->addWidget(m_note);
    m_notices->setObjectName(u"printNotices"_s);
    m_notices->setWordWrap(true);
    m_notices->hide();
    m_note->setObjectName(u"printNote"_s);
    m_note->setWordWrap(true);
    m_note->setPalette(warningPalette(palette()));
    auto *const buttons = new QDialogButtonBox(this);
    m_print = buttons->addButton(u"印刷(&P)"_s, QDialogButtonBox::AcceptRole);
    m_print->setObjectName(u"printNow"_s);
    m_print->setDefault(true);
    buttons->addButton(u"キャンセル"_s, QDialogButtonBox::RejectRole);
    QObject::connect(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
    QObject::connect(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
    layout->addWidget(buttons);
    showPrinter();
    m_printer->setFocus();
}

QWidget *PrintDialog::printerGroup()
{
    auto *const group = new QGroupBox(u"プリンター"_s, this);
    auto *const form = new QFormLayout(group);
    m_printer = named(new QComboBox(group), "printer", u"プリンター"_s);
    m_copies = named(new QSpinBox(group), "copies", u"部数"_s);
    m_copies->setRange(1, kMaxCopies);
    m_copies->setSuffix(u" 部"_s);
    m_duplex = named(new QComboBox(group), "duplex", u"両面印刷"_s);
    for (const DuplexChoice &choice : kDuplex) m_duplex->addItem(QString::fromUtf8(choice.text));
    form->addRow(u"プリンター(&R)"_s, m_printer);
    form->addRow(u"部数(&C)"_s, m_copies);
    form->addRow(u"両面印刷(&D)"_s, m_duplex);
    m_tray = named(new QComboBox(group), "tray", u"給紙トレイ"_s);
    form->addRow(u"給紙トレイ(&U)"_s, m_tray);
    int chosen = 0;
    const QString last = m_settings.printer();
    for (const PrinterChoice &printer : m_printers) {
        m_printer->addItem(printer.description.isEmpty() ? printer.name : printer.description);
        const bool isLast = printer.name == last;
        if (isLast || (printer.isDefault && last.isEmpty())) chosen = m_printer->count() - 1;
    }
    if (!m_printers.empty()) m_printer->setCurrentIndex(chosen);
    QObject::connect(m_printer, &QComboBox::currentIndexChanged, this, [this] { showPrinter(); });
    return group;
}

QWidget *PrintDialog::jobGroup()
{
    auto *const group = new QGroupBox(u"範囲と分け方"_s, this);
    auto *const layout = new QVBoxLayout(group);
    m_range = new RangeBox(group);
    m_range->showTicks(&m_ticks);
    m_range->onChanged = [this] {
        if (onTicksChanged) onTicksChanged();
        enablePrint();
        updateNotices();
    };
    m_oneJob = named(new QRadioButton(u"一度にまとめて印刷する(&O)"_s, group), "oneJob", u"一度にまとめて印刷する"_s);
    m_manyJobs = named(new QRadioButton(u"分けて印刷する(&M)"_s, group), "manyJobs", u"分けて印刷する"_s);
    m_perJob = named(new LettersPerJobBox(group), "lettersPerJob", u"一回に印刷する通数"_s);
    m_perJob->setRange(1, kMaxPerJob);
    m_perJob->setSuffix(u" 通ずつ"_s);
    const int perJob = m_settings.lettersPerJob();
    m_perJob->setValue(perJob == 0 ? kUsualPerJob : perJob);
    (perJob == 0 ? m_oneJob : m_manyJobs)->setChecked(true);
    // Never disable this box: Tab would skip it until the option's key has taken effect. Typing selects the option.
    const auto chooseManyJobs = [this] { m_manyJobs->setChecked(true); };
    QObject::connect(m_perJob, &QSpinBox::valueChanged, this, chooseManyJobs);
    QObject::connect(m_perJob->findChild<QLineEdit *>(), &QLineEdit::textEdited, this, chooseManyJobs);
    auto *const many = new QHBoxLayout;
    many->addWidget(m_manyJobs);
    many->addWidget(m_perJob);
    many->addStretch();
    m_reversed =
        named(new QCheckBox(u"最後の番号から逆の順に印刷する(&V)"_s, group), "reversed", u"逆の順に印刷する"_s);
    m_reversed->setChecked(m_settings.letterOrder() == LetterOrder::reversed);
    layout->addWidget(m_range);
    layout->addWidget(m_oneJob);
    layout->addLayout(many);
    layout->addWidget(m_reversed);
    return group;
}

void PrintDialog::showPrinter()
{
    enablePrint();
    if (m_printers.empty()) return;
    const PrinterChoice &printer = m_printers[static_cast<std::size_t>(m_printer->currentIndex())];
    m_duplex->setItemText(0, u"プリンターの設定どおり（%1）"_s.arg(QString::fromUtf8(duplexText(printer.duplex))));
    m_printer->setToolTip(m_printer->currentText()); // a long name is cut
    const QString duplex = m_settings.duplexOf(printer.name);
    const auto *const last =
        std::ranges::find_if(kDuplex, [&](const DuplexChoice &choice) { return duplex == QLatin1String(choice.name); });
    m_duplex->setCurrentIndex(last == std::end(kDuplex) ? 0 : static_cast<int>(last - std::begin(kDuplex)));
    showTrays(printer);
    m_offset->setOffset(m_settings.offsetOf(printer.name));
}

void PrintDialog::showTrays(const PrinterChoice &printer)
{
    m_tray->clear();
    m_tray->addItem(QString::fromUtf8(kDuplex[0].text));
    if (printer.trays)
        for (const TrayChoice &tray : printer.trays()) m_tray->addItem(tray.text, tray.key);
    m_tray->setCurrentIndex(std::max(0, m_tray->findData(m_settings.trayOf(printer.name))));
}

void PrintDialog::enablePrint()
{
    const bool hasPrinter = !m_printers.empty();
    m_note->setText(
        u"使えるプリンターがありません。システムの設定でプリンターを追加するか、PDF に保存してください。"_s);
    m_note->setVisible(!hasPrinter);
    m_printer->parentWidget()->setEnabled(hasPrinter); // the group
    m_offset->enableRulerPage(hasPrinter);
    m_print->setEnabled(hasPrinter && m_ticks.count() > 0);
}

void PrintDialog::hideArrangement()
{
    m_arrangement->hide();
}

void PrintDialog::hideLetterChoices()
{
    m_jobs->hide();
    hideArrangement();
    m_offset->hide();
}

void PrintDialog::showNotices(std::function<QString(const LetterTicks &)> notices)
{
    m_noticesOf = std::move(notices);
    updateNotices();
}

void PrintDialog::updateNotices()
{
    const QString text = m_noticesOf ? m_noticesOf(m_ticks) : QString();
    m_notices->setText(text);
    m_notices->setVisible(!text.isEmpty());
}

PrintOrder PrintDialog::order() const
{
    PrintOrder order;
    if (m_printers.empty()) return order;
    const PrinterChoice &printer = m_printers[static_cast<std::size_t>(m_printer->currentIndex())];
    order.printer = printer.name;
    order.copies = m_copies->value();
    order.duplex = kDuplex[m_duplex->currentIndex()].mode.value_or(printer.duplex);
    order.tray = m_tray->currentData().toString();
    order.letterOrder = m_reversed->isChecked() ? LetterOrder::reversed : LetterOrder::forward;
    order.lettersPerJob = m_manyJobs->isChecked() ? static_cast<std::size_t>(m_perJob->value()) : 0;
    order.arrangement = m_arrangement->arrangement();
    order.offset = m_offset->offset();
    return order;
}

void PrintDialog::remember()
{
    const PrintOrder chosen = order();
    m_settings.setPrinter(chosen.printer);
    m_settings.setOffset(chosen.printer, chosen.offset);
    m_settings.setDuplex(chosen.printer, QLatin1String(kDuplex[m_duplex->currentIndex()].name));
    m_settings.setTray(chosen.printer, chosen.tray);
    m_settings.setLetterOrder(chosen.letterOrder);
    m_settings.setArrangement(chosen.arrangement);
    m_settings.setLettersPerJob(static_cast<int>(chosen.lettersPerJob));
    // Unwritable settings must not prevent printing.
    (void)m_settings.save();
}

void PrintDialog::printRulers()
{
    remember();
    if (!onRulerPage) return;
    const std::string fault = onRulerPage(order());
    m_note->setText(qtText(fault));
    m_note->setVisible(!fault.empty());
}

void PrintDialog::accept()
{
    // While the text is invalid, the ticks differ from what the box shows.
    if (!m_range->isReadable() || m_ticks.count() == 0) return m_range->focusBox();
    remember();
    QDialog::accept();
}

} // namespace inin::viewer
