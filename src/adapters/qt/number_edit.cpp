#include "adapters/qt/number_edit.h"

#include "adapters/qt/qt_text.h"
#include "runtime/format.h"

#include <QValidator>

#include <algorithm>
#include <limits>

namespace inin::qt {

namespace {

constexpr char16_t kFullWidthZero = u'０';
constexpr char16_t kFullWidthNine = u'９';

/// Converts full-width digits to digits and refuses everything else, so that the box never contains another character.
/// A zero before another digit is removed: typing after the 0 of an untouched box enters the new digit alone.
class DigitsOnly : public QValidator {
public:
    DigitsOnly(const NumberEdit::Limits &limits, QObject *parent)
        : QValidator(parent), m_most(limits.most.value_or(std::numeric_limits<std::int32_t>::max())),
          m_least(limits.least.value_or(0))
    {
    }

    State validate(QString &text, int &cursor) const override
    {
        for (QChar &letter : text) {
            const char16_t code = letter.unicode();
            if (code >= kFullWidthZero && code <= kFullWidthNine) letter = QChar(u'0' + code - kFullWidthZero);
            if (letter < u'0' || letter > u'9') return Invalid;
        }
        if (text.isEmpty()) return Acceptable;
        qsizetype zeros = 0;
        while (zeros + 1 < text.size() && text[zeros] == u'0') ++zeros;
        text.remove(0, zeros);
        cursor = std::max(0, cursor - static_cast<int>(zeros));
        bool fits = false;
        const int number = text.toInt(&fits);
        if (!fits || number > m_most) return Invalid;
        // A number with fewer digits than the minimum may still grow.
        return number < m_least ? Intermediate : Acceptable;
    }

private:
    int m_most;
    int m_least;
};

} // namespace

NumberEdit::NumberEdit(const Limits &limits, std::string format, QWidget *parent)
    : TypedBox(parent), m_format(std::move(format))
{
    setValidator(new DigitsOnly(limits, this)); // owned by the box
    setInputMethodHints(Qt::ImhDigitsOnly);
    setAlignment(Qt::AlignRight);
    connect(this, &QLineEdit::textEdited, this, [this](const QString &text) { takeText(text); });
}

void NumberEdit::setValue(const Variant &value)
{
    m_value = value;
    const Variant shown = Format(value, m_format, {});
    const auto *text = shown.getIf<std::string>();
    setText(text != nullptr ? toQt(*text) : QString());
}

void NumberEdit::commit()
{
    if (!hasAcceptableInput()) setValue(m_value);
}

void NumberEdit::takeText(const QString &text)
{
    if (!hasAcceptableInput()) return;
    m_value = text.isEmpty() ? Variant(Null{}) : Variant(std::int32_t{text.toInt()});
    if (onEdited) onEdited(m_value);
}

} // namespace inin::qt
