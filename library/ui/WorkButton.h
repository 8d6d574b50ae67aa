#pragma once

#include <QBoxLayout>
#include <QPushButton>

namespace KOLT::Library {

/// Adds a button to the row of a window that works for long. Only the default button takes Return,
/// wherever the focus is: a second Return must not end what the first began.
inline QPushButton* addWorkButton(QBoxLayout& row, const QString& text, const char* name)
{
    auto* const button = new QPushButton(text);
    button->setObjectName(QLatin1String(name));
    button->setAutoDefault(false);
    row.addWidget(button);
    return button;
}

} // namespace KOLT::Library
