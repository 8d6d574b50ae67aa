#pragma once

#include <QString>
#include <QTextDocument>

namespace KOLT {

/// The text for a tool tip, which would take names from files that look so for markup.
inline QString plainToolTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

} // namespace KOLT
