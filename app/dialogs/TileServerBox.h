#pragma once

#include "map/MapSettings.h"

#include <QWidget>

class QLabel;
class QLineEdit;

namespace Tessa {
class TileCheck;
}

namespace KOLT {

/// The field for the address of the tile server or a folder of tiles, with buttons that choose a
/// folder and test what is entered.
class TileServerBox : public QWidget
{
    Q_OBJECT

public:
    explicit TileServerBox(QWidget* parent = nullptr);

    QString address() const;
    /// Shows the tile server; tests with the rest.
    void setSettings(const MapSettings& settings);

private:
    void chooseFolder();
    void test();
    void showResult(bool isGood, const QString& text);

    QLineEdit* m_address;
    QLabel* m_result;
    Tessa::TileCheck* m_check;
    bool m_isNetworkEnabled = true;
    QString m_tested; ///< the address that the result tells of
};

} // namespace KOLT
