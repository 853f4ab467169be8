#pragma once

#include "viewer/pdf/letters_pdf.h"
#include "viewer/window/viewer_settings.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QPushButton;
class QRadioButton;

namespace inin::viewer {

class ArrangementBox;
struct OpenLetters;

/// How the letters are saved as PDF.
struct PdfOrder {
    bool onlyTicked = true;
    bool fileEach = false;
    QString pattern; ///< of the file names, when each letter has its own file
    PdfPurpose purpose = PdfPurpose::reading;
    bool fileBundle = false; ///< each bundle has its own file
    LetterArrangement arrangement = {};
};

/// Lets the user choose which letters are saved as PDF and how the files are named.
class PdfDialog : public QDialog {
public:
    PdfDialog(const OpenLetters &letters, ViewerSettings &settings, QWidget *parent = nullptr);
    [[nodiscard]] PdfOrder order() const;

protected:
    void accept() override;

private:
    QWidget *rangeGroup();
    QWidget *fileGroup();
    void showExample();

    const OpenLetters &m_letters;
    ViewerSettings &m_settings;
    ArrangementBox *m_arrangement;
    QRadioButton *m_all, *m_ticked, *m_one, *m_bundles, *m_each;
    QLineEdit *m_pattern;
    QComboBox *m_columns;
    QCheckBox *m_archive;
    QLabel *m_example;
    QPushButton *m_save;
};

} // namespace inin::viewer
