#include "libs/zinc/drawing/ZincView.h"

#include "libs/zinc/drawing/ViewPainter.h"
#include "libs/zinc/layout/Properties.h"
#include "libs/zinc/view/ViewReader.h"

#include <QFontDatabase>
#include <QSet>

namespace Zinc2D {

namespace {

/// Makes a font file available to the program, once.
void addFont(const QString& path)
{
    static QSet<QString> known;
    if (known.contains(path))
        return;
    known.insert(path);
    QFontDatabase::addApplicationFont(path);
}

/// How the matrix places the view, whose upper left corner is at (0, height).
PixelMap pixelMap(const QMatrix4x4& matrix, double height, const QSize& pixels)
{
    const auto inPixels = [&](double x, double y) {
        const QPointF place = matrix.map(QPointF(x, y)); // -1..1, upwards
        return QPointF((place.x() + 1.0) / 2.0 * pixels.width(),
                       (1.0 - place.y()) / 2.0 * pixels.height());
    };
    PixelMap map;
    map.offset = inPixels(0.0, height);
    constexpr double length = 1000.0; // long, as the matrix has single precision
    map.scale = (inPixels(length, height).x() - map.offset.x()) / length;
    return map;
}

} // namespace

ZincView::ZincView() = default;
ZincView::~ZincView() = default;

bool ZincView::load(const QString& path)
{
    m_frame = {};
    m_variables.dropDefinitions();
    m_rebuilt = 0;
    ViewReader reader(m_variables);
    std::optional<ViewModel> model = reader.read(path);
    m_diagnostics = reader.diagnostics();
    if (!model) {
        m_variables.dropDefinitions();
        m_model = {};
        return false;
    }
    m_model = std::move(*model);
    for (const QString& file : m_model.fontFiles)
        addFont(file);
    m_frame.setModel(m_model, m_variables);
    if (m_painter != nullptr)
        m_painter = std::make_unique<ViewPainter>(usableFont());
    return true;
}

QString ZincView::usableFont() const
{
    return QFontDatabase::hasFamily(m_model.fontFamily) ? m_model.fontFamily : QString();
}

void ZincView::initializeGraphics(TUSK::OpenGL::GlHandler& handler)
{
    m_handler = &handler;
    m_painter = std::make_unique<ViewPainter>(usableFont());
}

void ZincView::releaseGraphics()
{
    m_painter.reset();
    m_handler = nullptr;
}

void ZincView::draw(bool takesChanges)
{
    if (!m_isStarted || m_model.size.isEmpty() || m_painter == nullptr || m_pixels.isEmpty())
        return;
    if (takesChanges)
        m_rebuilt += m_frame.update();
    Argb background = 0;
    if (!m_isTransparent)
        background = colorOf(m_model.background, m_variables, 0);
    m_painter->draw(*m_handler, m_frame, pixelMap(m_handler->matrices().top(), height(), m_pixels),
                    m_pixels, background);
}

} // namespace Zinc2D
