#pragma once

#include <QObject>

class QWidget;

namespace KOLT {

class NoticeBar;

/// Installs the profile that came with the program when it is newer. An edited one is replaced only
/// when the user wants it: a bar offers it once for each version. The arguments must outlive it.
class ProfileOffer : public QObject
{
    Q_OBJECT

public:
    ProfileOffer(NoticeBar& bar, QWidget& window);

    /// To be called once, before the profile is loaded.
    void takeNewest();

    /// Tells what takeNewest() found.
    void tell();

signals:
    /// The user installed the newer profile.
    void signalInstalled();
    /// For the status bar.
    void signalMessage(const QString& message);

private:
    void showChanges();
    void refuse();

    NoticeBar& m_bar;
    QWidget& m_window;
    bool m_isReplaced = false;
    bool m_isOffered = false;
};

} // namespace KOLT
