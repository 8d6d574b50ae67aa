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
/// The view has its origin at its lower left corner, y upwards, and is as large as width() and
/// height(); the handler's matrix says where it lands. Only draw() and the operations about the
/// graphics need a context.
class ZincView
{
public:
    ZincView();
    ~ZincView();
    ZincView(const ZincView&) = delete;
    ZincView& operator=(const ZincView&) = delete;

    /// Takes the place of the view before; variables that were set keep their values. On failure
    /// there is no view, and diagnostics() says why. They also tell of what was left out of a view
    /// that loaded.
    bool load(const QString& path);

    const std::vector<Diagnostic>& diagnostics() const { return m_diagnostics; }

    /// Nothing is drawn before the view is started, and after it is stopped.
    void startView(bool isStarted) { m_isStarted = isStarted; }

    /// Whether the view lies over something: it then leaves out its own background. Otherwise that
    /// fills all of the framebuffer, beyond the view too.
    void setBackgroundMode(bool isTransparent) { m_isTransparent = isTransparent; }

    /// A number that is none takes the variable's value away: what depends on it shows dashes, as
    /// it does before the first number.
    void setVar(const QString& name, double value) { m_variables.set(name, value); }

    void setVar(const QString& name, int value) { m_variables.set(name, value); }

    /// Takes the values of all variables away.
    void unsetVars() { m_variables.unsetAll(); }

    const VariableTable& variables() const { return m_variables; }

    const ViewModel& model() const { return m_model; }

    /// The view's own size; 0 while there is none.
    double width() const { return m_model.size.width(); }

    double height() const { return m_model.size.height(); }

    /// The context is ready: draws with this handler, which must stay until releaseGraphics().
    void initializeGraphics(TUSK::OpenGL::GlHandler& handler);
    /// Before the context goes.
    void releaseGraphics();

    /// Size of the framebuffer in pixels.
    void setViewport(const QSize& pixels) { m_pixels = pixels; }

    /// Draws the view; `takesChanges`: after taking over what was set since the last time.
    void draw(bool takesChanges);

    /// How many elements were rebuilt since the view was loaded.
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
