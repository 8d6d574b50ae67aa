#pragma once

#include <QDialog>

namespace KOLT {

/// What differs between the installed profile and a newer one, and which of them to use.
class DialogProfileChanges : public QDialog
{
    Q_OBJECT

public:
    enum class Choice { None, Install, Keep };

    DialogProfileChanges(const QString& installed, const QString& newer, QWidget* parent);

    Choice choice() const { return m_choice; }

private:
    void choose(Choice choice);

    Choice m_choice = Choice::None;
};

} // namespace KOLT
