#pragma once

#include "record/Flight.h"
#include "ui/DataPage.h"

#include <QWidget>

#include <memory>

class QLabel;
class QTextEdit;

namespace KOLT {

class EmptyNote;
struct RecordingTrust;

/// The "Tow Statistic" page: the figures of the loaded flight, in metric units. Ignores the time.
class DialogDataStatistic : public QWidget, public DataPage
{
    Q_OBJECT

public:
    explicit DialogDataStatistic(QWidget* parent = nullptr);

    /// The figures as a rich-text table.
    static QString textOf(const Flight& flight);

    /// What is found in the data; null until it is known. Figures that it marks are told below the
    /// table.
    void setTrust(std::shared_ptr<const RecordingTrust> trust);

protected:
    void dropData() override { m_trust.reset(); }

    void showData(Changes changes) override;

    void showTime() override {}

    void resizeEvent(QResizeEvent* event) override;

private:
    void showNotes();
    void fitNotes();

    QTextEdit* m_text;
    EmptyNote* m_empty = nullptr;
    QLabel* m_rounded = nullptr; ///< below the table
    QTextEdit* m_notes;          ///< shown only with notes
    std::shared_ptr<const RecordingTrust> m_trust;
    QLabel* m_hint = nullptr; ///< how flight time is counted; shown with a flight only
};

} // namespace KOLT
