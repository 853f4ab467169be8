#include "viewer/window/pdf_dialog.h"

#include "runtime/runtime_error.h"
#include "viewer/document/letter_file_name.h"
#include "viewer/window/arrangement_box.h"
#include "viewer/window/help_window.h"
#include "viewer/window/open_letters.h"
#include "viewer/window/qt_text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace inin::viewer {

using namespace Qt::StringLiterals;

PdfDialog::PdfDialog(const OpenLetters &letters, ViewerSettings &settings, QWidget *parent)
    : QDialog(parent), m_letters(letters), m_settings(settings)
{
    setObjectName(u"pdfDialog"_s);
    addHelpKey(this);
    setWindowTitle(u"PDF に保存"_s);
    auto *const buttons = new QDialogButtonBox(this);
    m_save = buttons->addButton(u"保存先を選ぶ(&S)…"_s, QDialogButtonBox::AcceptRole);
    m_save->setObjectName(u"pdfSave"_s);
    buttons->addButton(u"キャンセル"_s, QDialogButtonBox::RejectRole);
    QObject::connect(buttons, &QDialogButtonBox::accepted, this, [this] { accept(); });
    QObject::connect(buttons, &QDialogButtonBox::rejected, this, [this] { reject(); });
    auto *const layout = new QVBoxLayout(this);
    layout->addWidget(rangeGroup());
    m_arrangement = new ArrangementBox(settings.arrangement(), this);
    layout->addWidget(m_arrangement);
    layout->addWidget(fileGroup());
    layout->addWidget(buttons);
    showExample();
}

QWidget *PdfDialog::rangeGroup()
{
    auto *const group = new QGroupBox(u"範囲"_s, this);
    const std::size_t ticked = m_letters.ticks.count();
    m_all = new QRadioButton(u"すべて（%1通）(&A)"_s.arg(m_letters.set.size()), group);
    m_all->setObjectName(u"pdfAll"_s);
    m_ticked = new QRadioButton(u"チェックした委任状だけ（%1通）(&T)"_s.arg(ticked), group);
    m_ticked->setObjectName(u"pdfTicked"_s);
    m_ticked->setEnabled(ticked > 0);
    (ticked > 0 ? m_ticked : m_all)->setChecked(true);
    auto *const layout = new QVBoxLayout(group);
    layout->addWidget(m_all);
    layout->addWidget(m_ticked);
    return group;
}

QWidget *PdfDialog::fileGroup()
{
    auto *const group = new QGroupBox(u"ファイル"_s, this);
    m_one = new QRadioButton(u"一つのファイルにまとめる(&O)"_s, group);
    m_one->setObjectName(u"pdfOne"_s);
    m_one->setChecked(true);
    m_bundles = new QRadioButton(u"束ごとに別のファイルにする(&B)"_s, group);
    m_bundles->setObjectName(u"pdfBundles"_s);
    m_bundles->setToolTip(u"並べ方の順の保険者か地区ごとに、その名前の付いたファイルにします。"_s);
    m_each = new QRadioButton(u"一通ずつ別のファイルにする(&E)"_s, group);
    m_each->setObjectName(u"pdfEach"_s);
    m_pattern = new QLineEdit(m_settings.fileNamePattern(), group);
    m_pattern->setObjectName(u"pdfPattern"_s);
    m_pattern->setAccessibleName(u"ファイル名の形"_s);
    constexpr int kWidth = 320;
    m_pattern->setMinimumWidth(kWidth);
    m_columns = new QComboBox(group);
    m_columns->setObjectName(u"pdfColumns"_s);
    m_columns->setAccessibleName(u"ファイル名に列を入れる"_s);
    m_columns->addItems({u"列を入れる"_s, u"番号"_s});
    for (const std::string &column : m_letters.set.reports.front().columns) m_columns->addItem(qtText(column));
    m_example = new QLabel(group);
    m_example->setObjectName(u"pdfExample"_s);
    m_example->setWordWrap(true);
    m_archive = new QCheckBox(u"アーカイブ用 (PDF/A)(&R)"_s, group);
    m_archive->setObjectName(u"pdfArchive"_s);
    m_archive->setToolTip(u"何年も保管するファイルに向いた形で保存します。"_s);
    m_archive->setChecked(m_settings.savesForArchive());
    auto *const label = new QLabel(u"ファイル名(&N)"_s, group);
    label->setBuddy(m_pattern);
    auto *const layout = new QGridLayout(group);
    layout->addWidget(m_one, 0, 0, 1, 3);
    layout->addWidget(m_bundles, 1, 0, 1, 3);
    layout->addWidget(m_each, 2, 0, 1, 3);
    layout->addWidget(label, 3, 0);
    layout->addWidget(m_pattern, 3, 1);
    layout->addWidget(m_columns, 3, 2);
    layout->addWidget(m_example, 4, 1, 1, 2);
    layout->addWidget(m_archive, 5, 0, 1, 3);
    QObject::connect(m_each, &QRadioButton::toggled, this, [this] { showExample(); });
    QObject::connect(m_pattern, &QLineEdit::textChanged, this, [this] { showExample(); });
    QObject::connect(m_columns, &QComboBox::activated, this, [this](int index) {
        if (index > 0) m_pattern->insert(u"{{"_s + m_columns->itemText(index) + u"}}"_s);
        m_columns->setCurrentIndex(0);
        m_pattern->setFocus();
    });
    return group;
}

void PdfDialog::showExample()
{
    const bool each = m_each->isChecked();
    m_pattern->setEnabled(each);
    m_columns->setEnabled(each);
    m_save->setEnabled(true);
    m_example->setText(u" "_s);
    if (!each) return;
    try {
        LetterFileNames names(m_letters.set, utf8Text(m_pattern->text()), ".pdf");
        m_example->setText(u"例：%1"_s.arg(qtText(names.nameOf(0))));
    } catch (const RuntimeError &error) {
        m_example->setText(qtText(error.description()));
        m_save->setEnabled(false);
    }
}

PdfOrder PdfDialog::order() const
{
    return {m_ticked->isChecked(),  m_each->isChecked(),
            m_pattern->text(),      m_archive->isChecked() ? PdfPurpose::archive : PdfPurpose::reading,
            m_bundles->isChecked(), m_arrangement->arrangement()};
}

void PdfDialog::accept()
{
    if (m_each->isChecked()) m_settings.setFileNamePattern(m_pattern->text());
    m_settings.setArrangement(m_arrangement->arrangement());
    m_settings.setSavesForArchive(m_archive->isChecked());
    // Unwritable settings must not prevent saving.
    (void)m_settings.save();
    QDialog::accept();
}

} // namespace inin::viewer
