#pragma once

#include "viewer/document/letter_bundles.h"

#include <QGroupBox>

class QCheckBox;
class QComboBox;

namespace inin::viewer {

/// The group 並べ方 of the print and PDF dialogs: the order of the letters, and covers for their bundles.
class ArrangementBox : public QGroupBox {
public:
    explicit ArrangementBox(const LetterArrangement &arrangement, QWidget *parent = nullptr);
    [[nodiscard]] LetterArrangement arrangement() const;

private:
    QComboBox *m_sort;
    QCheckBox *m_covers;
};

} // namespace inin::viewer
