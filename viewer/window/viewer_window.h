#pragma once

#include "viewer/pdf/letters_pdf.h"
#include "viewer/window/file_watch.h"
#include "viewer/window/finding_index.h"
#include "viewer/window/ledger_desk.h"
#include "viewer/window/letter_finder.h"
#include "viewer/window/letter_list_model.h"
#include "viewer/window/listed_letters.h"
#include "viewer/window/open_letters.h"
#include "viewer/window/page_view.h"
#include "viewer/window/pdf_dialog.h"
#include "viewer/window/pdf_output.h"
#include "viewer/window/viewer_services.h"

#include <QMainWindow>
#include <QTimer>

#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

class QAction;
class QComboBox;
class QLabel;
class QLayout;
class QLineEdit;
class QSpinBox;
class QSplitter;

namespace inin::viewer {

class ChangesPane;
class CheckPanel;
class ComparedBar;
class LetterList;
class NoticeBar;
class PaperBar;
class RangeBox;
class TaskBar;

/// The window for the letters of one script: list, page, check and output.
class ViewerWindow : public QMainWindow {
public:
    /// `path` is the script of the letters, or the form of sample letters.
    ViewerWindow(std::string path, std::unique_ptr<OpenLetters> letters, ViewerServices services = realServices());
    ~ViewerWindow() override;

    /// Follows the script's last line: shows the letters, opens the print dialog, or prints.
    void start();

    [[nodiscard]] OpenLetters &letters() { return *m_letters; }
    [[nodiscard]] const std::vector<Finding> &findings() const { return m_findings.all(); }
    void showLetter(std::size_t letter);
    /// Checks the remaining letters at once.
    void finishCheck();
    /// Checks now whether a file has changed.
    void checkFiles() { m_watch.check(); }
    /// Checks now whether a form, or a picture beside it, has changed.
    void checkForms() { m_formWatch.check(); }
    void reload();

    /// Opens the print dialog, then prints the ticked letters.
    void askPrint();
    /// The same for the shown letter alone; the ticks stay as they are.
    void askPrintThis();
    void print(const PrintOrder &order);
    /// Shows the listed letters of this kind only.
    void setFilter(ListFilter filter);
    /// Lets the user choose letters and file names, then writes PDF files.
    void askPdf();
    void savePdf(const PdfOrder &order);

protected:
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    // viewer_menus.cpp
    void buildMenus();
    void buildFileMenu();
    void buildSelectMenu();
    void buildMoveMenu();
    void buildViewMenu();
    void buildSortMenu(QMenu *menu);
    void buildLedgerMenu();
    void buildHelpMenu();
    void buildTools();
    QLayout *buildFind(QWidget *side);
    QLayout *buildFilter(QWidget *side);

    // viewer_window.cpp
    QWidget *buildPage();
    void adopt(std::unique_ptr<OpenLetters> letters);
    [[nodiscard]] QString runTitle() const;
    /// The warnings about the letter files, one per line.
    [[nodiscard]] QString warningText() const;
    void whenPlaced(std::function<void()> what);
    void showZoom();
    void fitPage(PageView::Fit fit);
    void fileChanged(const std::string &path);
    /// Shows the warnings, the fault of a saved form and the ledger's notice above the page. An offer to load changed letters
    /// stays there.
    void showNotices();
    void showMessage(QMessageBox::Icon icon, const QString &text);

    // viewer_form.cpp
    void followForms();
    void formChanged();
    void showForms();

    // viewer_place.cpp
    void fitToScreen();
    void restoreLayout();
    void keepLayout();

    // viewer_list.cpp
    QWidget *buildList();
    void step(int by);
    void tickAll(bool ticked);
    void untickMarked();
    enum class Ticking { more, only };
    /// Ticks the found letters; with Ticking::only no others stay ticked.
    void tickFound(Ticking ticking);
    void ticksChanged();
    void find(Direction direction);
    void findTyped();
    void showFound(const std::vector<bool> &found, std::optional<std::size_t> letter);
    void refreshList();
    void showListNote();

    // viewer_check.cpp
    void startCheck();
    void checkMore();
    void showFindings();
    void switchCheck(Cause cause, bool isOn);
    void showNextFlagged(Direction direction);

    // viewer_output.cpp
    /// A dialog for `ticks`, which must outlive it.
    [[nodiscard]] QString printNotices(const LetterTicks &ticks) const;
    [[nodiscard]] std::unique_ptr<PrintDialog> printDialog(LetterTicks &ticks);
    void print(const PrintOrder &order, const LetterTicks &ticks);
    void printSheets(const PrintOrder &order, const std::vector<std::size_t> &sheets);
    [[nodiscard]] Progress inLetters(const Progress &progress, const std::vector<std::size_t> &sheets) const;
    void runTask(const QString &title, std::size_t total, const std::function<bool(const Progress &)> &task);
    void showPrinted(const PrintResult &result, const std::vector<std::size_t> &sheets);
    void writePdf(const PdfOrder &order, const std::vector<std::size_t> &sheets);
    void writePdfParts(const PdfOrder &order, std::size_t letters,
                       const std::function<std::vector<PdfPart>(const std::string &folder)> &partsIn);
    void keepPdfFolder(const QString &folder);
    void askPrintOnly(LetterTicks &only, const QString &title);

    // viewer_ledger.cpp
    void openLedger();
    void showLedger();
    void showLedgerOfForms();
    void showLedgerFilters();
    void showStates();
    void refreshLedger();
    void showLedgerNotice();
    void showChanges();
    void showGone();
    void followLedgerLink(const QString &target);
    void compareWith(const RunSummary &run);
    void untickPrinted();
    void tickState(LetterState state);
    void startOutput();
    /// Call after saving letters in files.
    void recordSaved(std::span<const std::size_t> letters);
    void askPaper();
    void confirmAll();
    void confirmUpTo(std::optional<int> lastGood);
    void printRest();
    void askLedgerSettings();
    // viewer_returns.cpp
    void askReturns();
    void switchCodes(bool isOn);
    enum class CodesFor { screen, output };
    void showCodes(CodesFor use);
    void recordBeforeOutput();
    QString eraseLedger();

    const std::string m_path;
    ViewerServices m_services;
    ViewerSettings m_settings;
    std::unique_ptr<OpenLetters> m_letters;
    std::unique_ptr<LetterFinder> m_finder;
    std::unique_ptr<LetterCheck> m_check; ///< set while letters are being checked
    std::vector<Finding> m_allFindings;   ///< by the check, whether or not its cause is switched on
    FindingIndex m_findings;
    LedgerDesk m_desk;
    QTimer m_checkTimer;
    FileWatch m_watch;
    /// A person who edits a form expects to see a change at once.
    FileWatch m_formWatch{{100, 40}};
    QTimer m_formTimer;   ///< runs until a form is read again that could not be read
    QTimer m_ledgerTimer; ///< runs from a change of a form until the ledger is read for it
    LetterListModel m_model;
    ListedLetters m_listed{m_model};
    std::vector<QAction *> m_idleActions;   ///< those that are disabled while a task runs
    std::vector<QAction *> m_ledgerActions; ///< those that need the ledger
    LetterList *m_list = nullptr;
    PageView *m_page = nullptr;
    CheckPanel *m_checkPanel = nullptr;
    QSplitter *m_split = nullptr, *m_pageSplit = nullptr;
    ComparedBar *m_comparedBar = nullptr;
    ChangesPane *m_changes = nullptr;
    PaperBar *m_paper = nullptr;
    NoticeBar *m_notice = nullptr;
    RangeBox *m_range = nullptr;
    TaskBar *m_task = nullptr;
    QSpinBox *m_number = nullptr;
    QLineEdit *m_find = nullptr;
    QLabel *m_found = nullptr;
    QComboBox *m_filter = nullptr;
    QLabel *m_listNote = nullptr;
    QLabel *m_zoom = nullptr;
    int m_checkHeight = 0;           ///< of the check's list, when it has rows
    QString m_ledgerNotice;          ///< as shown last
    QString m_formFault;             ///< why a saved form is not shown
    std::vector<std::size_t> m_rest; ///< letters that did not come out of the printer
    QString m_taskState;             ///< progress of the running task, in words
    bool m_isAsking = false, m_closesAfterTask = false, m_closesWhenPrinted = false;
};

} // namespace inin::viewer
