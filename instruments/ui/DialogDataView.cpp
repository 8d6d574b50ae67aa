#include "instruments/ui/DialogDataView.h"

#include "base/Diagnostics.h"
#include "libs/tusk/gl/GlHandler.h"

#include <QOpenGLContext>

#include <cmath>

namespace KOLT {

namespace {

constexpr int updateMilliseconds = 1000;
constexpr float farthest = -7000.0F;

} // namespace

DialogDataView::DialogDataView(const Profile& profile, QString viewFile, QWidget* parent)
    : QOpenGLWidget(parent)
    , m_profile(profile)
    , m_viewFile(std::move(viewFile))
{
    setFocusPolicy(Qt::StrongFocus);
    setMinimumSize(160, 90);
    connect(&m_timer, &QTimer::timeout, this, &DialogDataView::slotTimeoutUpdate);
    m_timer.start(updateMilliseconds);
    refresh(); // variant and unit system hold without data too
}

DialogDataView::~DialogDataView()
{
    if (context() != nullptr)
        disconnect(context(), &QOpenGLContext::aboutToBeDestroyed, this, nullptr);
    releaseGraphics();
}

void DialogDataView::releaseGraphics()
{
    makeCurrent(); // what they hold belongs to the context
    m_view.releaseGraphics();
    m_handler.reset();
    doneCurrent();
}

void DialogDataView::initializeGL()
{
    // A widget that moves to another window gets another context.
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
    if (!m_isLoaded) {
        loadView();
        resizeGL(width(), height());
    }
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
    const bool isLoaded = m_view.load(m_viewFile);
    m_view.startView(true);
    m_view.setBackgroundMode(false);
    tellDiagnostics(isLoaded);
}

void DialogDataView::tellDiagnostics(bool isLoaded)
{
    const std::vector<Zinc2D::Diagnostic>& diagnostics = m_view.diagnostics();
    for (const Zinc2D::Diagnostic& diagnostic : diagnostics)
        Diagnostics::print("DialogDataView <%s>\n", qUtf8Printable(diagnostic.text()));
    if (diagnostics.empty())
        return;
    const QString first = diagnostics.front().text();
    const QString message =
        isLoaded ? tr("The instrument view has %n fault(s): %1", nullptr,
                      static_cast<int>(diagnostics.size()))
                       .arg(first)
                 : tr("The instrument view cannot be shown: %1").arg(diagnostics.back().text());
    // Not from within painting.
    QMetaObject::invokeMethod(
        this, [this, message] { emit signalMessage(message); }, Qt::QueuedConnection);
}

void DialogDataView::dropData()
{
    m_parameters.clear(); // they point into the profile
    m_view.unsetVars();
    update();
}

void DialogDataView::showData()
{
    m_parameters = dataSet() != nullptr ? viewParameters(m_profile) : std::vector<ViewParameter>();
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

void DialogDataView::pushValues()
{
    m_view.setVar(QStringLiteral("VARIANT"), variantNumber(m_profile));
    m_view.setVar(QStringLiteral("UNIT"), static_cast<int>(m_profile.unitSystem()));
    for (const ViewParameter& parameter : m_parameters) {
        const ViewValue value = viewValueAt(*dataSet(), parameter, time());
        if (!std::isnan(value.number))
            m_view.setVar(parameter.name, value.number);
        m_view.setVar(QStringLiteral("%1_STATE").arg(parameter.name), value.state);
    }
    update();
}

} // namespace KOLT
