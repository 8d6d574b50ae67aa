#pragma once

#include "record/VariantFit.h"

#include <QObject>
#include <QSet>

namespace KOLT {

class CardSession;
class NoticeBar;

/// Tells in a bar when the chosen variant is not the one for the loaded recording, and when its
/// clock is late. Changes nothing by itself. The arguments must outlive it.
class RecordingNotice : public QObject
{
    Q_OBJECT

public:
    RecordingNotice(const Profile& profile, CardSession& card, NoticeBar& bar);

signals:
    /// The user wants to see the recording with this variant.
    void signalVariant(const QString& variant);

private:
    void noteLoaded();
    void refresh();

    const Profile& m_profile;
    CardSession& m_card;
    NoticeBar& m_bar;
    QStringList m_engines; ///< of the loaded files; the folder may be another one by now
    QString m_recording;   ///< folder and files
    QString m_lateClock;
    QString m_better;
    QSet<QString> m_closed; ///< recordings of which the user closed the bar
};

} // namespace KOLT
