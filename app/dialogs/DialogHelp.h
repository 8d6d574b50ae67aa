#pragma once

#include <QDialog>
#include <QTextDocument>

class QLineEdit;
class QTextBrowser;

namespace KOLT {

/// The manual in the program's language, with a search field.
class DialogHelp : public QDialog
{
    Q_OBJECT

public:
    /// Falls back to English when there is no manual for the locale.
    explicit DialogHelp(const QString& locale, QWidget* parent = nullptr);

private:
    void find(QTextDocument::FindFlags direction);

    QTextBrowser* m_browser = nullptr;
    QLineEdit* m_search = nullptr;
};

} // namespace KOLT
