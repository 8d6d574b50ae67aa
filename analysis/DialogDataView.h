#pragma once

#include "analysis/DataPage.h"
#include "analysis/ViewValues.h"
#include "libs/zinc/ZincView.h"

#include <QOpenGLWidget>
#include <QTimer>

#include <functional>

namespace TUSK::OpenGL {
class GlHandler;
}

namespace KOLT {

/// The "EMU View" page: the engine's instrument panel, drawn from the view file
/// "views/instruments.v" of the resources (docs/formats/view.md).
///
/// It only loads the view, fits it into the widget, and pushes values into the view's variables: of
/// the parameters, their threshold states, the variant and the unit system.
class DialogDataView : public QOpenGLWidget, public DataPage
{
    Q_OBJECT

public:
    /// Tells what is wrong with the view file, once.
    using MessageHandler = std::function<void(const QString& message)>;

    explicit DialogDataView(const Profile& profile, QWidget* parent = nullptr);
    ~DialogDataView() override;

    /// Another view than that of the resources; before the page is painted for the first time.
    void setViewFile(const QString& path) { m_viewFile = path; }

    void setMessageHandler(MessageHandler handler) { m_messageHandler = std::move(handler); }

    const Zinc2D::ZincView& view() const { return m_view; }

    /// Where the view lies in the widget: centred, with its aspect kept.
    struct Fit
    {
        double scale = 1.0;
        double offsetX = 0.0;
        double offsetY = 0.0;
    };

    static Fit fit(const QSizeF& widget, const QSizeF& view);

protected:
    void initializeGL() override;
    void resizeGL(int width, int height) override;
    void paintGL() override;
    void dropData() override;
    void showData() override;
    void showTime() override;

private slots:
    void slotTimeoutUpdate();

private:
    void releaseGraphics();
    void loadView();
    void tellDiagnostics(bool isLoaded);
    void pushValues();

    const Profile& m_profile;
    QString m_viewFile; ///< empty: that of the resources
    MessageHandler m_messageHandler;
    std::unique_ptr<TUSK::OpenGL::GlHandler> m_handler;
    Zinc2D::ZincView m_view;
    bool m_isLoaded = false; ///< or it was tried
    Fit m_fit;
    std::vector<ViewParameter> m_parameters;
    QTimer m_timer;
};

} // namespace KOLT
