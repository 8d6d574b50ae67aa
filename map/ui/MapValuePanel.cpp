#include "map/ui/MapValuePanel.h"

#include "map/ui/OutlinedLabel.h"
#include "profile/ValueDecoder.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QScrollArea>

#include <algorithm>

namespace KOLT {

namespace {

constexpr int margin = 5;
constexpr int rowSpacing = 3;
constexpr int leastCharacters = 20; ///< of name and value

} // namespace

MapValuePanel::MapValuePanel(const Profile& profile, QWidget* parent)
    : m_profile(profile)
    , m_panel(new QWidget(parent))
    , m_scroll(new QScrollArea(m_panel))
    , m_content(new QFrame) // not a plain QWidget, which would have the panel's background again
    , m_grid(new QGridLayout(m_content))
{
    m_panel->setAttribute(Qt::WA_StyledBackground);
    m_panel->setStyleSheet(
        QStringLiteral(".QWidget{background-color: #66000000;border-radius:10px;}"));
    m_panel->setObjectName(QStringLiteral("valuePanel"));
    m_panel->setAccessibleName(QCoreApplication::translate("MapValuePanel", "Values"));
    m_panel->hide();
    m_grid->setContentsMargins(margin, margin, margin, margin);
    m_grid->setColumnStretch(0, 1);
    m_grid->setVerticalSpacing(rowSpacing);
    createScroll();
}

void MapValuePanel::createScroll()
{
    m_scroll->setObjectName(QStringLiteral("valueScroll"));
    m_scroll->setViewport(new QFrame);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setStyleSheet(
        QStringLiteral("QScrollArea, QFrame {background: transparent; border: none}"));
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setWidgetResizable(true);
    m_scroll->setWidget(m_content);
    m_scroll->viewport()->setAutoFillBackground(false);
    m_content->setAutoFillBackground(false);
    auto* const layout = new QGridLayout(m_panel);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_scroll);
}

bool MapValuePanel::place(const QRect& area)
{
    const QFontMetrics metrics = m_panel->fontMetrics();
    m_hasRoom = area.width() >= leastCharacters * metrics.averageCharWidth() &&
                area.height() >= metrics.height() + 2 * margin;
    updateVisibility();
    const int full = m_grid->sizeHint().height();
    const bool isCut = full > area.height();
    m_panel->setAttribute(Qt::WA_TransparentForMouseEvents, !isCut);
    m_scroll->setVerticalScrollBarPolicy(isCut ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff);
    m_scroll->setFocusPolicy(isCut ? Qt::StrongFocus : Qt::NoFocus);
    m_panel->setGeometry({area.topLeft(), QSize(area.width(), std::clamp(area.height(), 0, full))});
    return m_hasRoom;
}

void MapValuePanel::updateVisibility()
{
    m_panel->setVisible(!m_rows.empty() && !m_isFolded && m_hasRoom);
}

void MapValuePanel::setFolded(bool isFolded)
{
    m_isFolded = isFolded;
    updateVisibility();
}

void MapValuePanel::setData(const DataSet* dataSet)
{
    for (const Row& row : m_rows) {
        delete row.name;
        delete row.value;
    }
    m_rows.clear();
    m_table = {};
    if (dataSet != nullptr) {
        const std::vector<const ProfileParameter*> parameters = m_profile.selectedParameters();
        m_table = TimeTable(*dataSet, parameters);
        for (const ProfileParameter* const parameter : parameters)
            addRow(*parameter);
    }
    setFolded(m_isFolded);
}

void MapValuePanel::addRow(const ProfileParameter& parameter)
{
    const Row row{&parameter, new OutlinedLabel(parameter.name, m_content),
                  new OutlinedLabel(QString(), m_content)};
    const int line = static_cast<int>(m_rows.size());
    row.name->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // cut before the value
    row.value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    row.value->setAccessibleName(parameter.name);
    m_grid->addWidget(row.name, line, 0);
    m_grid->addWidget(row.value, line, 1);
    // The grid gives no height to hidden labels.
    row.name->show();
    row.value->show();
    m_rows.push_back(row);
}

void MapValuePanel::showTime(double seconds)
{
    if (m_table.rowCount() == 0)
        return;
    const std::size_t tableRow = m_table.rowAt(seconds);
    for (std::size_t i = 0; i < m_rows.size(); ++i)
        showValue(m_rows[i], m_table.cellAt(seconds, tableRow, i).sample);
}

void MapValuePanel::showValue(const Row& row, const StoredSample* sample)
{
    QString text = QStringLiteral("---");
    QColor color = Qt::white;
    if (sample != nullptr) {
        MessageData bytes = sample->data;
        const DecodedValue value = decodeValue(m_profile, *row.parameter, bytes);
        text = value.text;
        color = QColor(value.grade.color);
        if (!m_profile.unitLabel(*row.parameter).isEmpty())
            text += QStringLiteral(" [%1]").arg(m_profile.unitLabel(*row.parameter));
    }
    row.value->setTextColor(color);
    row.value->setText(text);
}

} // namespace KOLT
