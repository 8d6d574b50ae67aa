#pragma once

#include "library/ledger/LogbookRecords.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QDialogButtonBox;
class QLabel;

namespace KOLT {

/// Asks which engine was in which unit from when to when. What cannot be is told, and not accepted.
class InstallationEditor : public QDialog
{
    Q_OBJECT

public:
    /// `all` has the other installations; engines and units are offered, and others can be entered.
    InstallationEditor(const Library::WrittenInstallation& installation,
                       const std::vector<Library::WrittenInstallation>& all,
                       const QStringList& engines, const QStringList& units,
                       QWidget* parent = nullptr);

    /// As it is in the fields.
    Library::WrittenInstallation installation() const;

private:
    void check();

    Library::WrittenInstallation m_installation;
    std::vector<Library::WrittenInstallation> m_all;
    QComboBox* m_unit;
    QComboBox* m_engine;
    QCheckBox* m_hasFrom;
    QDateEdit* m_from;
    QCheckBox* m_hasTo;
    QDateEdit* m_to;
    QLabel* m_mistake;
    QDialogButtonBox* m_buttons;
};

} // namespace KOLT
