#pragma once

#include <QAbstractButton>
#include <QTest>

namespace KOLT::Test {

/// The button in the window whose text starts with this, ignoring mnemonics; null when there is
/// none.
template <typename Button = QAbstractButton>
Button* labelled(const QWidget& window, const QString& text)
{
    for (Button* const candidate : window.findChildren<Button*>()) {
        if (candidate->text().remove('&').startsWith(text))
            return candidate;
    }
    return nullptr;
}

inline void click(const QWidget& window, const QString& text)
{
    QTest::mouseClick(labelled(window, text), Qt::LeftButton);
}

} // namespace KOLT::Test
