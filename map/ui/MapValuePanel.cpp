#include "map/ui/MapValuePanel.h"

#include "profile/ValueDecoder.h"

#include <QGridLayout>
#include <QLabel>

namespace KOLT {

namespace {

constexpr int margin = 5;
const auto valueStyle = QStringLiteral("QLabel {color: %1; font-weight: bold;}");

} // namespace

MapValuePanel::MapValuePanel(const Profile& profile, QWidget* parent)
    : m_profile(profile)
    , m_panel(new QWidget(parent))
    , m_grid(new QGridLayout(m_panel))
{
    m_panel->setAttribute(Qt::WA_StyledBackground);
    m_panel->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_panel->setStyleSheet(
        QStringLiteral(".QWidget{background-color: #66000000;border-radius:10px;}"));
    m_panel->setObjectName(QStringLiteral("valuePanel"));
    m_panel->hide();
    m_grid->setContentsMargins(margin, margin, margin, margin);
    m_grid->setSizeConstraint(QLayout::SetNoConstraint); // a low map cuts the last rows off
    m_grid->setColumnStretch(0, 1);
}

int MapValuePanel::fullHeight() const
{
    return m_grid->sizeHint().height();
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
    m_panel->setVisible(!m_rows.empty());
}

void MapValuePanel::addRow(const ProfileParameter& parameter)
{
    const Row row{&parameter, new QLabel(parameter.name, m_panel), new QLabel(m_panel)};
    const int line = static_cast<int>(m_rows.size());
    for (QLabel* const label : {row.name, row.value})
        label->setStyleSheet(valueStyle.arg(QStringLiteral("white")));
    row.value->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
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
    const QString style = valueStyle.arg(color.name());
    if (row.value->styleSheet() != style) // setting one is expensive
        row.value->setStyleSheet(style);
    row.value->setText(text);
}

} // namespace KOLT
