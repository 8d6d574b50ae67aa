#include "export/ui/DialogExportKml.h"

#include "export/KmlWriter.h"
#include "export/ui/PathSummary.h"
#include "export/ui/WidgetColorButton.h"
#include "record/FlightPath.h"
#include "record/TimeSlots.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLocale>
#include <QSlider>
#include <QSpinBox>
#include <QVBoxLayout>

namespace KOLT {

namespace {

constexpr int opaque = 255;
constexpr int percentPadding = 4;
constexpr int groupSpacing = 12;

/// A spin box with the bounds of the setting.
QSpinBox* createNumber(const char* key)
{
    auto* const box = new QSpinBox;
    box->setObjectName(QLatin1String(key));
    box->setRange(bounded(key, 0), bounded(key, 1'000'000));
    return box;
}

QGroupBox* createGroup(const QString& title, bool isCheckable, QFormLayout*& form)
{
    auto* const group = new QGroupBox(title);
    group->setCheckable(isCheckable);
    form = new QFormLayout(group);
    return group;
}

} // namespace

DialogExportKml::DialogExportKml(const Profile& profile, Source source, const KmlOptions& options,
                                 QWidget* parent)
    : DialogExport(std::move(source),
                   {tr("Export KML File"), QStringLiteral("kml"), tr("KML Files (*.kml)"),
                    tr("KOLT Warning"), tr("Exporting KML file failed !")},
                   parent)
    , m_profile(profile)
{
    createOptions();
    setOptions(options);
    setSummary(pathSummary(this->source().dataSet), hasPath(this->source().dataSet));
}

void DialogExportKml::createOptions()
{
    m_times = new QComboBox;
    m_times->setObjectName(QStringLiteral("KmlTimeStamp"));
    m_times->addItem(tr("None"), 0);
    m_times->addItem(tr("On each mark"), 1);
    m_times->addItem(tr("On each mark, and a track that plays back"), 2);
    auto* const grid = new QGridLayout;
    grid->addWidget(createLine(), 0, 0);
    grid->addWidget(createCurtain(), 0, 1);
    grid->addWidget(createPlaceMarks(), 1, 0);
    grid->addWidget(createErrorMarks(), 1, 1);
    grid->setSpacing(groupSpacing);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    auto* const form = new QFormLayout;
    form->addRow(tr("T&imes"), m_times);
    m_altitudes = new QComboBox;
    m_altitudes->setObjectName(QStringLiteral("altitudes"));
    m_altitudes->addItem(tr("As recorded, above sea level"), 0);
    m_altitudes->addItem(tr("On the ground"), 1);
    m_altitudes->addItem(tr("Above the ground, from the lowest point on"), 2);
    form->addRow(tr("Al&titudes"), m_altitudes);
    m_packed = new QCheckBox(tr("&KMZ file: with its icons inside, for maps without network"));
    connect(m_packed, &QCheckBox::toggled, this, &DialogExportKml::setKind);
    form->addRow(QString(), m_packed);
    if (!source().dataSet.dateTime.isValid()) {
        m_times->setEnabled(false);
        m_times->setToolTip(tr("The recording has no date, so no times can be written."));
    }
    optionsLayout().addLayout(grid);
    optionsLayout().addLayout(form);
}

QGroupBox* DialogExportKml::createLine()
{
    QFormLayout* form = nullptr;
    QGroupBox* const group = createGroup(tr("Flight path"), false, form);
    m_lineWidth = createNumber("KmlLineWidth");
    m_lineWidth->setSuffix(tr(" px"));
    m_lineColor = new WidgetColorButton;
    form->addRow(tr("&Width"), m_lineWidth);
    form->addRow(tr("&Color"), m_lineColor);
    m_lineAlpha = addOpacity(form);
    return group;
}

QGroupBox* DialogExportKml::createCurtain()
{
    QFormLayout* form = nullptr;
    m_polygon = createGroup(tr("Curtain down to the &ground"), true, form);
    m_polygonColor = new WidgetColorButton;
    form->addRow(tr("Color"), m_polygonColor);
    m_polygonAlpha = addOpacity(form);
    return m_polygon;
}

QGroupBox* DialogExportKml::createPlaceMarks()
{
    QFormLayout* form = nullptr;
    m_placeMarks = createGroup(tr("&Marks along the path"), true, form);
    m_placeMarks->setToolTip(tr("Each shows time, altitude, speed and the selected parameters"));
    m_interval = createNumber("KmlPlaceMarkIntervall");
    m_interval->setToolTip(tr("Distance of the marks in positions of the path"));
    m_intervalSeconds = new QLabel;
    m_intervalSeconds->setObjectName(QStringLiteral("hint"));
    connect(m_interval, &QSpinBox::valueChanged, this, &DialogExportKml::showInterval);
    auto* const row = new QHBoxLayout;
    row->addWidget(m_interval);
    row->addWidget(m_intervalSeconds);
    row->addStretch();
    m_placeMarkColor = new WidgetColorButton;
    auto* const every = new QLabel(tr("&Every"));
    every->setBuddy(m_interval);
    form->addRow(every, row);
    form->addRow(tr("Color"), m_placeMarkColor);
    return m_placeMarks;
}

QGroupBox* DialogExportKml::createErrorMarks()
{
    QFormLayout* form = nullptr;
    m_errorMarks = createGroup(tr("Error ma&rks"), true, form);
    m_limits = new QCheckBox(tr("Where a &limit was exceeded"));
    m_warnings = new QCheckBox(tr("Where a warning lam&p came on"));
    m_errorMarkColor = new WidgetColorButton;
    form->addRow(m_limits);
    form->addRow(m_warnings);
    m_warningMarkColor = new WidgetColorButton;
    form->addRow(tr("Color of limits"), m_errorMarkColor);
    form->addRow(tr("Color of warnings"), m_warningMarkColor);
    return m_errorMarks;
}

QSlider* DialogExportKml::addOpacity(QFormLayout* form)
{
    auto* const slider = new QSlider(Qt::Horizontal);
    slider->setRange(0, opaque);
    auto* const percent = new QLabel;
    percent->ensurePolished(); // knows its font
    percent->setFixedWidth(percent->fontMetrics().horizontalAdvance(QStringLiteral("100 %")) +
                           percentPadding);
    percent->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    connect(slider, &QSlider::valueChanged, percent, [percent](int value) {
        percent->setText(QStringLiteral("%1 %").arg((value * 100 + opaque / 2) / opaque));
    });
    auto* const row = new QHBoxLayout;
    row->addWidget(slider, 1);
    row->addWidget(percent);
    form->addRow(tr("Opacity"), row);
    return slider;
}

void DialogExportKml::showInterval()
{
    m_intervalSeconds->setText(
        tr("positions (%1 s)").arg(QLocale().toString(m_interval->value() * gridSeconds)));
}

void DialogExportKml::setKind()
{
    if (m_packed->isChecked())
        setFileKind(QStringLiteral("kmz"), tr("KMZ Files (*.kmz)"));
    else
        setFileKind(QStringLiteral("kml"), tr("KML Files (*.kml)"));
}

void DialogExportKml::setOptions(const KmlOptions& options)
{
    m_lineWidth->setValue(options.lineWidth);
    m_lineColor->setColor(options.lineColor);
    m_lineAlpha->setValue(options.lineAlpha);
    m_polygon->setChecked(options.polygonOn);
    m_polygonColor->setColor(options.polygonColor);
    m_polygonAlpha->setValue(options.polygonAlpha);
    m_placeMarks->setChecked(options.placeMarkOn);
    m_interval->setValue(options.placeMarkInterval);
    showInterval();
    m_placeMarkColor->setColor(options.placeMarkColor);
    m_errorMarks->setChecked(options.errorMarkOn);
    m_limits->setChecked(options.showLimit);
    m_warnings->setChecked(options.showWarning);
    m_errorMarkColor->setColor(options.errorMarkColor);
    m_warningMarkColor->setColor(options.warningMarkColor);
    m_times->setCurrentIndex(static_cast<int>(options.timeStamp));
    m_altitudes->setCurrentIndex(static_cast<int>(options.altitudeMode));
    m_packed->setChecked(options.packed);
}

KmlOptions DialogExportKml::options() const
{
    KmlOptions options;
    options.timeStamp = static_cast<KmlOptions::Times>(m_times->currentData().toInt());
    options.lineWidth = m_lineWidth->value();
    options.lineColor = m_lineColor->color();
    options.lineAlpha = m_lineAlpha->value();
    options.polygonOn = m_polygon->isChecked();
    options.polygonColor = m_polygonColor->color();
    options.polygonAlpha = m_polygonAlpha->value();
    options.placeMarkOn = m_placeMarks->isChecked();
    options.placeMarkInterval = m_interval->value();
    options.placeMarkColor = m_placeMarkColor->color();
    options.errorMarkOn = m_errorMarks->isChecked();
    options.showLimit = m_limits->isChecked();
    options.showWarning = m_warnings->isChecked();
    options.errorMarkColor = m_errorMarkColor->color();
    options.warningMarkColor = m_warningMarkColor->color();
    options.altitudeMode =
        static_cast<KmlOptions::AltitudeMode>(m_altitudes->currentData().toInt());
    options.packed = m_packed->isChecked();
    return options;
}

ExportStatus DialogExportKml::write(QIODevice& device, const ExportProgress& progress)
{
    return writeKml(device, m_profile, source().dataSet, options(), source().title, progress,
                    source().note);
}

} // namespace KOLT
