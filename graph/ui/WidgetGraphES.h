#pragma once

#include "graph/ui/WidgetGraphBase.h"

#include <memory>

namespace TUSK::OpenGL {
class GlHandler;
class TextureFont;
} // namespace TUSK::OpenGL

namespace KOLT {

/// The oscilloscope drawn with the primitives of libs/tusk, for contexts without the fixed-function
/// pipeline.
class WidgetGraphES : public WidgetGraphBase
{
    Q_OBJECT

public:
    explicit WidgetGraphES(QWidget* parent = nullptr);
    ~WidgetGraphES() override;

protected:
    void initializeGL() override;
    void drawScene(const GraphScene& scene, double pixelRatio) override;

private:
    void drawFigure(const GraphScene& scene, const GraphScene::Figure& figure, double pixelRatio);

    std::unique_ptr<TUSK::OpenGL::GlHandler> m_handler;
    std::unique_ptr<TUSK::OpenGL::TextureFont> m_font;
    QFont m_fontOf;           ///< font that m_font was made from
    double m_fontRatio = 0.0; ///< pixel ratio that m_font was made for
};

} // namespace KOLT
