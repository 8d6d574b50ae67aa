#pragma once

#include <QDialog>

class QLineEdit;
class QTextBrowser;

namespace KOLT {

/// The manual, in the language of the program, with a search.
class DialogHelp : public QDialog
{
    Q_OBJECT

public:
    /// English where there is no manual for the locale.
    explicit DialogHelp(const QString& locale, QWidget* parent = nullptr);

private:
    void find(bool backward);

    QTextBrowser* m_browser = nullptr;
    QLineEdit* m_search = nullptr;
};

} // namespace KOLT
