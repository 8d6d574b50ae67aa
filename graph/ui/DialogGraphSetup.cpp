#include "graph/ui/DialogGraphSetup.h"

#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>

#include <cmath>

namespace KOLT {

namespace {

constexpr QSize swatchSize(32, 16);
constexpr int numberWidth = 90;

/// 0 for text that is not a finite number. Accepts the language's decimal sign and a point.
double numberOf(const QString& text)
{
    bool isNumber = false;
    double number = text.toDouble(&isNumber);
    if (!isNumber)
        number = QLocale().toDouble(text);
    return std::isfinite(number) ? number : 0.0;
}

/// In the notation of the user interface's language.
QString textOf(double number)
{
    QLocale locale;
    locale.setNumberOptions(QLocale::OmitGroupSeparator);
    return locale.toString(number, 'g', QLocale::FloatingPointShortest);
}

} // namespace

DialogGraphSetup::DialogGraphSetup(GraphSettings& settings, QWidget* parent)
    : QDialog(parent)
    , m_settings(settings)
{
    setWindowTitle(tr("Oscilloscope Setup"));
    auto* const form = new QFormLayout;
    createRows(form);
    auto* const close = new QPushButton(tr("Close"), this);
    close->setAutoDefault(false);
    connect(close, &QPushButton::clicked, this, &DialogGraphSetup::slotClose);
    auto* const bottom = new QHBoxLayout;
    bottom->addStretch();
    bottom->addWidget(close);
    auto* const layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addLayout(bottom);
    refresh();
}

QCheckBox* DialogGraphSetup::createBox(const QString& text, bool GraphSettings::*flag)
{
    auto* const box = new QCheckBox(text, this);
    m_boxes.emplace_back(box, flag);
    return box;
}

QLayout* DialogGraphSetup::createColorRow(const QColor& color, void (DialogGraphSetup::*slot)(),
                                          QCheckBox* box)
{
    auto* const row = new QHBoxLayout;
    if (box != nullptr)
        row->addWidget(box);
    auto* const swatch = new QLabel(this);
    swatch->setFixedSize(swatchSize);
    swatch->setAutoFillBackground(true);
    swatch->setFrameShape(QFrame::Box);
    m_colors.push_back({swatch, &color});
    auto* const select = new QPushButton(tr("Select"), this);
    select->setAutoDefault(false);
    connect(select, &QPushButton::clicked, this, slot);
    if (box != nullptr) {
        connect(box, &QCheckBox::toggled, select, &QWidget::setEnabled);
        select->setEnabled(box->isChecked());
    }
    row->addStretch();
    row->addWidget(swatch);
    row->addWidget(select);
    return row;
}

void DialogGraphSetup::createRows(QFormLayout* form)
{
    QCheckBox* const grid = createBox(tr("Grid On"), &GraphSettings::hasGrid);
    QCheckBox* const cursor = createBox(tr("Cursor On"), &GraphSettings::hasCursor);
    QCheckBox* const legend = createBox(tr("Legend On"), &GraphSettings::hasLegend);
    QCheckBox* const autoscale = createBox(tr("Autoscale On"), &GraphSettings::isAutoscaled);
    QCheckBox* const thresholds = createBox(tr("Limits On"), &GraphSettings::hasThresholds);
    QCheckBox* const statistic =
        createBox(tr("Statistic between markers On"), &GraphSettings::hasStatistic);
    connect(grid, &QCheckBox::stateChanged, this, &DialogGraphSetup::slotGridOn);
    connect(cursor, &QCheckBox::stateChanged, this, &DialogGraphSetup::slotCursorOn);
    connect(legend, &QCheckBox::stateChanged, this, &DialogGraphSetup::slotLegendOn);
    connect(autoscale, &QCheckBox::stateChanged, this, &DialogGraphSetup::slotAutoscaleOn);
    QCheckBox* const events = createBox(tr("Exceedances On"), &GraphSettings::hasEvents);
    QCheckBox* const notes = createBox(tr("Notes On"), &GraphSettings::hasNotes);
    for (const auto& [box, flag] :
         {std::pair(thresholds, &GraphSettings::hasThresholds),
          std::pair(notes, &GraphSettings::hasNotes), std::pair(events, &GraphSettings::hasEvents),
          std::pair(statistic, &GraphSettings::hasStatistic)})
        connect(box, &QCheckBox::toggled, this,
                [this, flag = flag](bool isOn) { setFlag(flag, isOn); });
    m_cursorMode = new QComboBox(this);
    m_cursorMode->addItems({tr("Floating"), tr("Center"), tr("End")});
    connect(m_cursorMode, &QComboBox::currentIndexChanged, this, [this](int index) {
        m_settings.cursorMode = static_cast<CursorMode>(index);
        if (!m_isShowing)
            emit signalChanged();
    });
    m_yMinimum = new QLineEdit(this);
    m_yMaximum = new QLineEdit(this);
    for (QLineEdit* edit : {m_yMinimum, m_yMaximum}) {
        edit->setFixedWidth(numberWidth);
        connect(autoscale, &QCheckBox::toggled, edit, &QWidget::setDisabled);
    }
    m_yMinimum->setToolTip(tr("Lower end of the scale without autoscale"));
    m_yMaximum->setToolTip(tr("Upper end of the scale without autoscale"));
    connect(m_yMinimum, &QLineEdit::textChanged, this, &DialogGraphSetup::slotYmin);
    connect(m_yMaximum, &QLineEdit::textChanged, this, &DialogGraphSetup::slotYmax);

    auto* const cursorRow = new QHBoxLayout;
    cursorRow->addWidget(cursor);
    cursorRow->addStretch();
    cursorRow->addWidget(m_cursorMode);
    auto* const scaleRow = new QHBoxLayout;
    scaleRow->addWidget(autoscale);
    scaleRow->addStretch();
    scaleRow->addWidget(m_yMinimum);
    scaleRow->addWidget(m_yMaximum);
    form->addRow(tr("Background Color :"),
                 createColorRow(m_settings.background, &DialogGraphSetup::slotBackgroundColor));
    form->addRow(tr("Grid On/Color :"),
                 createColorRow(m_settings.gridColor, &DialogGraphSetup::slotGridColor, grid));
    form->addRow(tr("Label Color :"),
                 createColorRow(m_settings.labelColor, &DialogGraphSetup::slotLabelColor));
    form->addRow(tr("Label Background :"),
                 createColorRow(m_settings.labelBackground, &DialogGraphSetup::slotLabelBackColor));
    form->addRow(tr("Cursor On/Mode :"), cursorRow);
    form->addRow(tr("Legend :"), legend);
    form->addRow(tr("Y-Scale :"), scaleRow);
    form->addRow(tr("Limits :"), thresholds);
    form->addRow(tr("Exceedances :"), events);
    form->addRow(tr("Statistic :"), statistic);
    form->addRow(tr("Notes :"), notes);
}

void DialogGraphSetup::refresh()
{
    m_isShowing = true;
    for (const ColorRow& row : m_colors) {
        QPalette palette = row.swatch->palette();
        palette.setColor(QPalette::Window, *row.color);
        row.swatch->setPalette(palette);
    }
    for (const auto& [box, flag] : m_boxes)
        box->setChecked(m_settings.*flag);
    m_cursorMode->setCurrentIndex(static_cast<int>(m_settings.cursorMode));
    m_yMinimum->setText(textOf(m_settings.yMinimum));
    m_yMaximum->setText(textOf(m_settings.yMaximum));
    m_isShowing = false;
}

void DialogGraphSetup::chooseColor(QColor& color)
{
    const QColor chosen = QColorDialog::getColor(color, this);
    if (chosen.isValid())
        color = chosen;
    emit signalChanged();
    refresh();
}

void DialogGraphSetup::setFlag(bool GraphSettings::*flag, bool isOn)
{
    m_settings.*flag = isOn;
    if (!m_isShowing)
        emit signalChanged();
}

void DialogGraphSetup::slotBackgroundColor()
{
    chooseColor(m_settings.background);
}

void DialogGraphSetup::slotGridColor()
{
    chooseColor(m_settings.gridColor);
}

void DialogGraphSetup::slotLabelColor()
{
    chooseColor(m_settings.labelColor);
}

void DialogGraphSetup::slotLabelBackColor()
{
    chooseColor(m_settings.labelBackground);
}

void DialogGraphSetup::slotGridOn(int state)
{
    setFlag(&GraphSettings::hasGrid, state == Qt::Checked);
}

void DialogGraphSetup::slotCursorOn(int state)
{
    setFlag(&GraphSettings::hasCursor, state == Qt::Checked);
}

void DialogGraphSetup::slotLegendOn(int state)
{
    setFlag(&GraphSettings::hasLegend, state == Qt::Checked);
}

void DialogGraphSetup::slotAutoscaleOn(int state)
{
    setFlag(&GraphSettings::isAutoscaled, state == Qt::Checked);
}

void DialogGraphSetup::slotYmin(const QString& text)
{
    if (m_isShowing)
        return;
    m_settings.yMinimum = numberOf(text);
    emit signalChanged();
}

void DialogGraphSetup::slotYmax(const QString& text)
{
    if (m_isShowing)
        return;
    m_settings.yMaximum = numberOf(text);
    emit signalChanged();
}

void DialogGraphSetup::slotClose()
{
    close();
}

} // namespace KOLT
