#pragma once

#include "instruments/ViewValues.h"
#include "libs/zinc/drawing/ZincView.h"
#include "ui/DataPage.h"

#include <QOpenGLWidget>
#include <QTimer>

namespace TUSK::OpenGL {
class GlHandler;
}

namespace KOLT {

/// The "EMU View" page: the engine's instrument panel, drawn from a view file
/// (docs/formats/view.md).
///
/// Loads the view that fits the page's shape, fits it into the widget, and sets the view's
/// variables: values, threshold states and thresholds of the parameters, variant and unit system.
class DialogDataView : public QOpenGLWidget, public DataPage
{
    Q_OBJECT

public:
    DialogDataView(const Profile& profile, QString viewFile, QWidget* parent = nullptr);
    ~DialogDataView() override;

    /// The file is read when the page is first painted.
    void setViewFile(const QString& path) { m_viewFile = path; }

    const Zinc2D::ZincView& view() const { return m_view; }

    /// Scale and offset that centre the view in the widget and keep its aspect ratio.
    struct Fit
    {
        double scale = 1.0;
        double offsetX = 0.0;
        double offsetY = 0.0;
    };

    static Fit fit(const QSizeF& widget, const QSizeF& view);

signals:
    /// Faults of the view file, and names shared by several parameters; each is reported once.
    void signalMessage(const QString& text);

protected:
    void initializeGL() override;
    void resizeGL(int width, int height) override;
    void paintGL() override;
    void dropData() override;
    void showData(Changes changes) override;
    void showTime() override;

private slots:
    void slotTimeoutUpdate();

private:
    void releaseGraphics();
    void loadView();
    void loadFile(const QString& path);
    void chooseShape();
    void addFault(const Zinc2D::Diagnostic& fault);
    void findUnknownVariables();
    QString faultsInWords() const;
    QStringList sharedNamesInWords();
    void tellFaults();
    void pushValues();
    void pushLimits();

    const Profile& m_profile;
    QString m_viewFile;
    std::vector<Zinc2D::ViewAlternative> m_alternatives; ///< of m_viewFile
    QString m_shownFile;                                 ///< m_viewFile or an alternative
    std::unique_ptr<TUSK::OpenGL::GlHandler> m_handler;
    Zinc2D::ZincView m_view;
    bool m_isLoaded = false; ///< or loading failed
    std::vector<Zinc2D::Diagnostic> m_faults;
    std::size_t m_toldFaults = 0; ///< that many of m_faults are reported
    QSet<QString> m_toldNames;    ///< unknown variables that are reported
    QSet<QString> m_toldShared;   ///< shared names that are reported
    Fit m_fit;
    std::vector<ViewParameter> m_parameters;
    std::uint64_t m_limitsRevision = 0; ///< of the profile whose limits are set; 0: none are
    QTimer m_timer;
};

} // namespace KOLT
