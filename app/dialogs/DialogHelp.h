#pragma once

#include <QDialog>

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
    void find(bool backward);

    QTextBrowser* m_browser = nullptr;
    QLineEdit* m_search = nullptr;
};

} // namespace KOLT
