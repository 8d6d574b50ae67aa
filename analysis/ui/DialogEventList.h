#pragma once

#include "analysis/EventFinder.h"
#include "analysis/ListSettings.h"
#include "ui/DataPage.h"

#include <QWidget>

#include <map>

class QLineEdit;
class QTableWidget;

namespace KOLT {

class ContentOrNote;

/// A page with a list of exceedances. Highlights the last one at or before the current time; the
/// user's choice of a row is reported. Base of the two lists, which differ in what they list.
class DialogEventList : public QWidget, public DataPage
{
    Q_OBJECT

public:
    /// The text of a list without entries.
    static QString emptyText();

    void setSettings(const ListSettings& settings) { m_settings = settings; }

signals:
    /// The user chose a row; seconds on the scale of the data set, to a millisecond.
    void signalTime(double seconds);

protected:
    DialogEventList(const Profile& profile, EventScope scope, const QString& heading,
                    QWidget* parent);

    void dropData() override;
    void showData() override;
    void showTime() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private slots:
    void slotSelect();

private:
    void createTable(const QString& heading);
    void createMenu();
    void fillTable();
    void applyFilter();
    void showToolTip(int row);
    void copy();
    void save();

    const Profile& m_profile;
    EventScope m_scope;
    ListSettings m_settings;
    std::vector<Event> m_events;
    std::map<qint64, int> m_rows; ///< rows in sight by time key; of equal keys the last
    bool m_isFilling = false;
    QLineEdit* m_filter = nullptr;
    QTableWidget* m_table = nullptr;
    ContentOrNote* m_shown = nullptr;
};

} // namespace KOLT
