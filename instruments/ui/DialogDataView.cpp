#include "instruments/ui/DialogDataView.h"

#include "base/Diagnostics.h"
#include "libs/tusk/gl/GlHandler.h"

#include <QFileInfo>
#include <QOpenGLContext>

#include <algorithm>
#include <cmath>
#include <limits>

namespace KOLT {

namespace {

constexpr int updateMilliseconds = 1000;
constexpr float farthest = -7000.0F;
constexpr std::size_t maxFaults = 200;

} // namespace

DialogDataView::DialogDataView(const Profile& profile, QString viewFile, QWidget* parent)
    : QOpenGLWidget(parent)
    , m_profile(profile)
    , m_viewFile(std::move(viewFile))
{
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("EMU View"));
    setAccessibleDescription(tr("The instruments at the current moment"));
    setMinimumSize(160, 90);
    connect(&m_timer, &QTimer::timeout, this, &DialogDataView::slotTimeoutUpdate);
    m_timer.start(updateMilliseconds);
    refresh(Change::Data); // sets variant and unit system
}

DialogDataView::~DialogDataView()
{
    if (context() != nullptr)
        disconnect(context(), &QOpenGLContext::aboutToBeDestroyed, this, nullptr);
    releaseGraphics();
}

void DialogDataView::releaseGraphics()
{
    makeCurrent(); // their resources belong to the context
    m_view.releaseGraphics();
    m_handler.reset();
    doneCurrent();
}

void DialogDataView::initializeGL()
{
    // Moving to another window gives the widget another context.
    connect(context(), &QOpenGLContext::aboutToBeDestroyed, this, &DialogDataView::releaseGraphics);
    m_handler = std::make_unique<TUSK::OpenGL::GlHandler>();
    m_handler->initialize();
    m_view.initializeGraphics(*m_handler);
}

DialogDataView::Fit DialogDataView::fit(const QSizeF& widget, const QSizeF& view)
{
    if (view.isEmpty())
        return {};
    const double scaleX = widget.width() / view.width();
    const double scaleY = widget.height() / view.height();
    if (scaleX > scaleY)
        return {scaleY, (widget.width() - view.width() * scaleY) * 0.5, 0.0};
    return {scaleX, 0.0, (widget.height() - view.height() * scaleX) * 0.5};
}

void DialogDataView::resizeGL(int width, int height)
{
    m_fit = fit(QSizeF(width, height), {m_view.width(), m_view.height()});
}

void DialogDataView::paintGL()
{
    if (!m_isLoaded)
        loadView();
    chooseShape();
    resizeGL(width(), height()); // the view may be another one
    m_handler->clear(Qt::white);
    m_handler->enableBlending();
    const double ratio = devicePixelRatioF();
    m_view.setViewport({static_cast<int>(std::lround(width() * ratio)),
                        static_cast<int>(std::lround(height() * ratio))});
    QMatrix4x4 matrix;
    matrix.ortho(0.0F, static_cast<float>(width()), 0.0F, static_cast<float>(height()), farthest,
                 0.0F);
    matrix.translate(static_cast<float>(m_fit.offsetX), static_cast<float>(m_fit.offsetY));
    matrix.scale(static_cast<float>(m_fit.scale));
    m_handler->matrices().load(matrix);
    m_view.draw(true);
}

void DialogDataView::loadView()
{
    m_isLoaded = true;
    loadFile(m_viewFile);
    m_alternatives = m_view.model().alternatives;
    m_view.startView(true);
    m_view.setBackgroundMode(false);
}

void DialogDataView::loadFile(const QString& path)
{
    m_view.load(path);
    m_shownFile = path;
    for (const Zinc2D::Diagnostic& diagnostic : m_view.diagnostics()) {
        if (std::ranges::count(m_faults, diagnostic) == 0) // the file may be loaded again
            addFault(diagnostic);
    }
    tellFaults();
}

/// Loads the view file that is meant for the shape of the page, unless it is shown already.
void DialogDataView::chooseShape()
{
    const QString file =
        Zinc2D::fileFor(m_alternatives, static_cast<double>(width()) / std::max(1, height()));
    const QString& wanted = file.isEmpty() ? m_viewFile : file;
    if (wanted == m_shownFile)
        return;
    loadFile(wanted);
    if (m_view.width() > 0.0 || wanted == m_viewFile)
        return;
    m_alternatives.clear(); // it cannot be shown: better the wrong shape
    loadFile(m_viewFile);
}

void DialogDataView::addFault(const Zinc2D::Diagnostic& fault)
{
    m_faults.push_back(fault);
    Diagnostics::print("DialogDataView <%s>\n", qUtf8Printable(fault.text()));
}

/// An element that refers to a name that is never set would show dashes forever, or be a lamp that
/// never lights.
void DialogDataView::findUnknownVariables()
{
    QSet<QString> known = viewVariables(m_profile);
    for (const QString& name : m_view.model().optionalVariables) {
        for (const QString& variable : variablesOf(name))
            known << variable;
    }
    for (const Zinc2D::VariableUse& use : m_view.model().variables) {
        if (known.contains(use.name) || m_toldNames.contains(use.name) ||
            m_faults.size() >= maxFaults)
            continue;
        m_toldNames << use.name;
        addFault(use.unknown);
    }
}

QString DialogDataView::faultsInWords() const
{
    const bool isShown = m_view.width() > 0.0;
    Zinc2D::Diagnostic fault = isShown ? m_faults.front() : m_faults.back();
    fault.file = QFileInfo(fault.file).fileName(); // the status bar is too small for a path
    return isShown ? tr("The instrument view has %n fault(s): %1", nullptr,
                        static_cast<int>(m_faults.size()))
                         .arg(fault.text())
                   : tr("The instrument view cannot be shown: %1").arg(fault.text());
}

/// Covers only names that the view uses: it can use the full names instead.
QStringList DialogDataView::sharedNamesInWords()
{
    QSet<QString> used;
    for (const Zinc2D::VariableUse& use : m_view.model().variables)
        used << use.name;
    QStringList texts;
    for (const SharedName& shared : sharedNames(viewParameters(m_profile))) {
        const QStringList variables = variablesOf(shared.name);
        const bool isUsed = std::ranges::any_of(
            variables, [&](const QString& name) { return used.contains(name); });
        if (!isUsed || m_toldShared.contains(shared.name))
            continue;
        m_toldShared << shared.name;
        texts << tr("Several parameters are named \"%1\" (%2). Under this name the instrument view "
                    "shows only the last one.")
                     .arg(shared.name, shared.fullNames.join(QStringLiteral(", ")));
    }
    return texts;
}

/// Reports what was not reported yet about view and profile.
void DialogDataView::tellFaults()
{
    if (!m_profile.parameters().empty()) // without parameters all names are unknown
        findUnknownVariables();
    QStringList messages = sharedNamesInWords();
    if (m_faults.size() > m_toldFaults)
        messages.prepend(faultsInWords());
    m_toldFaults = m_faults.size();
    if (messages.isEmpty())
        return;
    // Queued, as this may be called while painting.
    QMetaObject::invokeMethod(
        this, [this, message = messages.join(QLatin1Char(' '))] { emit signalMessage(message); },
        Qt::QueuedConnection);
}

void DialogDataView::dropData()
{
    m_parameters.clear(); // it points into the profile
    m_view.unsetVars();
    m_limitsRevision = 0;
    update();
}

void DialogDataView::showData(Changes changes)
{
    if (!changes.testFlag(Change::Data))
        return; // showTime() sets values and units
    m_parameters = dataSet() != nullptr ? viewParameters(m_profile) : std::vector<ViewParameter>();
    if (m_isLoaded)
        tellFaults(); // the profile may have changed
}

void DialogDataView::showTime()
{
    pushValues();
}

void DialogDataView::slotTimeoutUpdate()
{
    if (!isVisible())
        return;
    pushValues();
    update();
}

/// The thresholds change with the profile only.
void DialogDataView::pushLimits()
{
    m_limitsRevision = m_profile.revision();
    const std::vector<ViewParameter> parameters = viewParameters(m_profile);
    const auto push = [this](const QString& name, const std::vector<ViewStep>& steps) {
        m_view.setVar(limitVariable(name), upperLimit(steps));
        constexpr double unset = std::numeric_limits<double>::quiet_NaN();
        for (int step = 1; step <= mostViewSteps; ++step) {
            const auto index = static_cast<std::size_t>(step - 1);
            const bool isSet = index < steps.size();
            m_view.setVar(stepVariable(name, step), isSet ? steps[index].from : unset);
            m_view.setVar(stepColorVariable(name, step),
                          isSet ? static_cast<double>(steps[index].color) : unset);
        }
    };
    std::vector<std::vector<ViewStep>> steps;
    for (const ViewParameter& parameter : parameters) {
        const Threshold* const threshold = parameter.parameter->threshold;
        steps.push_back(threshold != nullptr ? viewSteps(*threshold) : std::vector<ViewStep>());
        push(parameter.fullName, steps.back());
    }
    for (std::size_t i = 0; i < steps.size(); ++i) // as in pushValues()
        push(parameters[i].name, steps[i]);
}

void DialogDataView::pushValues()
{
    m_view.setVar(variantVariable, variantNumber(m_profile));
    m_view.setVar(unitVariable, static_cast<int>(m_profile.unitSystem()));
    if (m_limitsRevision != m_profile.revision())
        pushLimits();
    const auto push = [this](const QString& name, const ViewValue& value) {
        if (!std::isnan(value.number))
            m_view.setVar(name, value.number);
        m_view.setVar(stateVariable(name), value.state);
    };
    std::vector<ViewValue> values;
    for (const ViewParameter& parameter : m_parameters) {
        values.push_back(viewValueAt(*dataSet(), parameter, time()));
        push(parameter.fullName, values.back());
    }
    // Set after the full names: a name takes precedence over an equal full name, and the last
    // parameter of a name over the others.
    for (std::size_t i = 0; i < values.size(); ++i)
        push(m_parameters[i].name, values[i]);
    update();
}

} // namespace KOLT
