#include "viewer/window/viewer_services.h"

#include "system/program_edges.h"

#include <QClipboard>
#include <QDir>
#include <QFileDialog>
#include <QGuiApplication>
#include <QPushButton>
#include <QShortcut>
#include <QStandardPaths>

namespace inin::viewer {

using namespace Qt::StringLiterals;

namespace {

CloseAnswer askClose(QWidget *parent, const QString &state)
{
    QMessageBox box(QMessageBox::Question, u"委任状"_s, state + u"\n閉じますか。"_s, QMessageBox::NoButton, parent);
    auto *const keep = box.addButton(u"閉じない"_s, QMessageBox::RejectRole);
    auto *const later = box.addButton(u"終わってから閉じる"_s, QMessageBox::AcceptRole);
    auto *const now = box.addButton(u"中止して閉じる"_s, QMessageBox::DestructiveRole);
    box.setDefaultButton(later);
    box.setEscapeButton(keep);
    box.exec();
    if (box.clickedButton() == now) return CloseAnswer::cancelAndClose;
    return box.clickedButton() == later ? CloseAnswer::closeWhenDone : CloseAnswer::keepPrinting;
}

void showMessage(QWidget *parent, QMessageBox::Icon icon, const QString &text)
{
    QMessageBox box(icon, u"委任状"_s, text, QMessageBox::NoButton, parent);
    box.addButton(u"OK"_s, QMessageBox::AcceptRole);
    // Users usually note down the numbers that were not printed.
    const auto *const copy = new QShortcut(QKeySequence::Copy, &box); // owned by the box
    QObject::connect(copy, &QShortcut::activated, &box, [&text] { QGuiApplication::clipboard()->setText(text); });
    box.exec();
}

/// Asks before something is lost; the default answer is no.
bool ask(QWidget *parent, const QString &text, const QString &yes)
{
    QMessageBox box(QMessageBox::Question, u"委任状"_s, text, QMessageBox::NoButton, parent);
    auto *const accept = box.addButton(yes, QMessageBox::AcceptRole);
    box.setDefaultButton(box.addButton(u"キャンセル"_s, QMessageBox::RejectRole));
    box.exec();
    return box.clickedButton() == accept;
}

/// The folder where users look first; a new account may have no documents folder yet.
QString folderOrDocuments(const QString &folder)
{
    if (!folder.isEmpty()) return folder;
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QDir(documents).exists() ? documents : QDir::homePath();
}

QString askFile(QWidget *parent, const QString &title, const QString &folder, const QString &name)
{
    const bool isPdf = name.endsWith(u".pdf"_s);
    QFileDialog dialog(parent, title, folderOrDocuments(folder),
                       isPdf ? u"PDF ファイル (*.pdf)"_s : u"CSV ファイル (*.csv)"_s);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    // The dialog itself adds the extension, before it asks about an existing file.
    dialog.setDefaultSuffix(isPdf ? u"pdf"_s : u"csv"_s);
    dialog.selectFile(name);
    const bool isChosen = dialog.exec() == QDialog::Accepted;
    return isChosen ? QDir::toNativeSeparators(dialog.selectedFiles().value(0)) : QString();
}

QString askFolder(QWidget *parent, const QString &folder)
{
    return QDir::toNativeSeparators(
        QFileDialog::getExistingDirectory(parent, u"PDF を保存するフォルダー"_s, folderOrDocuments(folder)));
}

QString askLedgerFolder(QWidget *parent)
{
    return QDir::toNativeSeparators(
        QFileDialog::getExistingDirectory(parent, u"台帳を置くフォルダー"_s, folderOrDocuments({})));
}

} // namespace

ViewerServices realServices()
{
    ViewerServices services;
    services.askClose = askClose;
    services.showMessage = showMessage;
    services.mayReplace = [](QWidget *parent, const QString &text) { return ask(parent, text, u"上書きする"_s); };
    services.mayErase = [](QWidget *parent, const QString &text) { return ask(parent, text, u"消去する"_s); };
    services.ledgerPath = [](const LedgerSettings &settings) {
        return ledgerPath(environmentText("ININ_LEDGER"), settings, operatorDataFolder(environmentText));
    };
    services.askLedgerFolder = askLedgerFolder;
    services.askPdfFile = [](QWidget *parent, const QString &folder, const QString &name) {
        return askFile(parent, u"PDF に保存"_s, folder, name);
    };
    services.askListFile = [](QWidget *parent, const QString &folder, const QString &name) {
        return askFile(parent, u"一覧を保存"_s, folder, name);
    };
    services.askFolder = askFolder;
    return services;
}

} // namespace inin::viewer
