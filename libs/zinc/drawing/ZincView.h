#pragma once

#include "libs/zinc/expression/VariableTable.h"
#include "libs/zinc/layout/ViewFrame.h"
#include "libs/zinc/view/ViewModel.h"
#include "libs/zinc/view/ViewSource.h"

#include <QSize>

#include <memory>

namespace TUSK::OpenGL {
class GlHandler;
}

namespace Zinc2D {

class ViewPainter;

/// A panel of instruments: a view file, its variables, and its drawing.
///
/// The handler's matrix places the view, which spans (0, 0) at its lower left corner to
/// (width(), height()). Only draw() and the operations on the graphics need a context. Names and
/// parameters of load, startView, setBackgroundMode, setVar, draw, width and height are fixed
/// (docs/names.md).
class ZincView
{
public:
    ZincView();
    ~ZincView();
    ZincView(const ZincView&) = delete;
    ZincView& operator=(const ZincView&) = delete;

    /// Replaces the view; variables that were set keep their values. On failure there is no view,
    /// and diagnostics() says why. It also lists what was left out of a view that was loaded.
    bool load(const QString& path);

    const std::vector<Diagnostic>& diagnostics() const { return m_diagnostics; }

    /// The view is drawn only while it is started.
    void startView(bool isStarted) { m_isStarted = isStarted; }

    /// A transparent view has no background. Otherwise its background fills the whole framebuffer,
    /// beyond the view too.
    void setBackgroundMode(bool isTransparent) { m_isTransparent = isTransparent; }

    /// NaN and infinity unset the variable: what depends on it shows dashes, as before the first
    /// number.
    void setVar(const QString& name, double value) { m_variables.set(name, value); }

    void setVar(const QString& name, int value) { m_variables.set(name, value); }

    /// Unsets all variables.
    void unsetVars() { m_variables.unsetAll(); }

    const VariableTable& variables() const { return m_variables; }

    const ViewModel& model() const { return m_model; }

    /// The view's own size; 0 while there is none.
    double width() const { return m_model.size.width(); }

    double height() const { return m_model.size.height(); }

    /// Call with the context current. The handler is used until releaseGraphics().
    void initializeGraphics(TUSK::OpenGL::GlHandler& handler);
    /// Call before the context is destroyed.
    void releaseGraphics();

    /// Size of the framebuffer in pixels.
    void setViewport(const QSize& pixels) { m_pixels = pixels; }

    /// Draws the view. `takesChanges`: with the variables that were set since the last call.
    void draw(bool takesChanges);

    /// Number of elements rebuilt since the view was loaded.
    long rebuiltElements() const { return m_rebuilt; }

private:
    QString usableFont() const;

    VariableTable m_variables;
    ViewModel m_model;
    ViewFrame m_frame;
    std::vector<Diagnostic> m_diagnostics;
    bool m_isStarted = false;
    bool m_isTransparent = false;
    long m_rebuilt = 0;
    QSize m_pixels;
    TUSK::OpenGL::GlHandler* m_handler = nullptr;
    std::unique_ptr<ViewPainter> m_painter;
};

} // namespace Zinc2D
