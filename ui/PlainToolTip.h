#pragma once

#include <QString>
#include <QTextDocument>

namespace KOLT {

/// Text for a tool tip that is shown literally, even when names in it look like markup.
inline QString plainToolTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

} // namespace KOLT
