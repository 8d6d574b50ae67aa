#pragma once

#include <QMap>
#include <QObject>
#include <QString>

#include <functional>

class QHeaderView;

namespace KOLT {

/// Keeps the widths that the user gives the columns of a table, by their headings. Columns that
/// nobody has dragged keep the width that the table gives them.
///
/// The faces know no settings, so the program sets where the widths are kept; without that they
/// last as long as the table.
class ColumnMemory : public QObject
{
public:
    using Widths = QMap<QString, int>; ///< in pixels, by heading

    struct Keeper
    {
        std::function<Widths(const QString& table)> load;
        std::function<void(const QString& table, const Widths& widths)> store;
    };

    static void setKeeper(Keeper keeper);

    /// Belongs to the header. The name says which table it is in the settings.
    ColumnMemory(QHeaderView& header, QString table);

    /// To be called after the table has fitted its columns.
    void restore();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void note(int column, int width);
    QString nameOf(int column) const;

    QHeaderView& m_header;
    QString m_table;
    Widths m_widths;
    bool m_isLoaded = false;
    bool m_isPressed = false; ///< the mouse, on the header
    bool m_isChanged = false; ///< since then
};

} // namespace KOLT
