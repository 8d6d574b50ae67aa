#pragma once

#include "library/database/LibraryRecords.h"

#include <QTimer>
#include <QWidget>

class QCheckBox;
class QComboBox;
class QDateEdit;
class QLineEdit;
class QSpinBox;
class QToolButton;

namespace KOLT {

/// What to look for in the library: a line for serial number or date, and behind a button
/// exceedance, fault, duration, days and notes. The button stays down while one of these is asked
/// for.
class LibraryFilterBar : public QWidget
{
    Q_OBJECT

public:
    explicit LibraryFilterBar(QWidget* parent = nullptr);

    /// Without `folders`, which withNote() asks for.
    Library::LibraryFilter filter() const;

    bool withNote() const;

    void clear();

    /// A serial number, or a day, month or year ("14.6.2025", "6.2025", "2025-06", "2025") as the
    /// days that it means.
    static void readSearch(const QString& text, Library::LibraryFilter& filter);

signals:
    /// A moment after the last change.
    void signalFilter();

private:
    QWidget* createMore();
    void connectFields();
    void showMore();
    bool isFiltering() const;

    QTimer m_timer;
    QLineEdit* m_search;
    QToolButton* m_button;
    QWidget* m_more = nullptr;
    QComboBox* m_exceeded = nullptr;
    QLineEdit* m_quantity = nullptr;
    QLineEdit* m_fault = nullptr;
    QSpinBox* m_shortest = nullptr; ///< minutes; 0: any
    QSpinBox* m_longest = nullptr;
    QDateEdit* m_from = nullptr; ///< the first date: any
    QDateEdit* m_to = nullptr;
    QCheckBox* m_note = nullptr;
};

} // namespace KOLT
