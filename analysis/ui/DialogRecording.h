#pragma once

#include "record/RecordingTrust.h"

#include <QDialog>

#include <vector>

class QLabel;
class QPushButton;
class QTableWidget;

namespace KOLT {

class ColumnMemory;
class ContentOrNote;

/// The window "Recording": what is found in the loaded data, or in a cycle, a row for each.
class DialogRecording : public QDialog
{
    Q_OBJECT

public:
    explicit DialogRecording(QWidget* parent = nullptr);

    /// Shows the findings of what has this name.
    void setFindings(const QString& name, const std::vector<TrustFinding>& findings);
    /// Shows a text in place of the findings.
    void setNote(const QString& text);

    /// Selects a finding by its index.
    void select(int finding);

    /// The rows as text, columns separated by tabs: the selected ones, or all.
    QString text(bool onlySelected) const;

signals:
    /// The user chose a finding that has a place in the recording.
    void signalTime(double seconds);

protected:
    void changeEvent(QEvent* event) override;

private:
    void createTable();
    void addRow(const TrustFinding& finding);
    void fitColumns();
    void pick(int row);
    void copy(bool onlySelected) const;

    std::vector<TrustFinding> m_findings; ///< by row
    QTableWidget* m_table = nullptr;
    ColumnMemory* m_widths = nullptr;
    QLabel* m_heading = nullptr;
    QPushButton* m_copy = nullptr;
    ContentOrNote* m_stack = nullptr;
};

} // namespace KOLT
