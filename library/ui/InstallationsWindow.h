#pragma once

#include "library/ledger/LogbookRecords.h"

#include <QDialog>

class QLabel;
class QPushButton;
class QTreeWidget;

namespace KOLT {

class EmptyNote;

/// Which engine was in which unit from when to when, as people say. Entries that contradict each
/// other, as of two computers, are marked. What the user changes is sent, and comes back with the
/// next list.
class InstallationsWindow : public QDialog
{
    Q_OBJECT

public:
    explicit InstallationsWindow(QWidget* parent = nullptr);

    /// Engines and units are those that the library knows, to choose from.
    void setInstallations(const std::vector<Library::WrittenInstallation>& installations,
                          const QStringList& engines, const QStringList& units);

signals:
    /// Save this.
    void signalInstallation(const KOLT::Library::WrittenInstallation& installation);

private:
    QLayout* createButtons();
    const Library::WrittenInstallation* chosen() const;
    void edit(const Library::WrittenInstallation& installation);
    void add();
    void remove();
    void showState();

    std::vector<Library::WrittenInstallation> m_list;
    QStringList m_engines;
    QStringList m_units;
    QTreeWidget* m_table;
    EmptyNote* m_empty;
    QLabel* m_state; ///< what is wrong
    std::vector<QPushButton*> m_ofChosen;
};

} // namespace KOLT
