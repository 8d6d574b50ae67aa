#pragma once

#include <QWidget>

#include <vector>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace KOLT {

/// A folder that is offered by a name.
struct OfferedFolder
{
    QString name;
    QString path;

    bool operator==(const OfferedFolder&) const = default;
};

/// In front of the pages while there is nothing to look at: what the program is for, or why the
/// folder shows nothing, and what can be opened instead.
class WelcomePanel : public QWidget
{
    Q_OBJECT

public:
    explicit WelcomePanel(QWidget* parent = nullptr);

    /// No folder is known yet.
    void showFirstStart();
    /// The folder has no recordings; the text says why.
    void showEmpty(const QString& reason);
    /// Volumes with recordings, each of which gets a button.
    void setVolumes(const std::vector<OfferedFolder>& volumes);

signals:
    void signalChooseFolder();
    void signalSample();
    void signalFolder(const QString& path);

private:
    QPushButton* addButton(const QString& text, const QString& tip);

    QLabel* m_text = nullptr;
    QLabel* m_hint = nullptr;
    QVBoxLayout* m_volumes = nullptr;
    QPushButton* m_sample = nullptr;
    std::vector<OfferedFolder> m_offered;
};

} // namespace KOLT
