#pragma once

#include <QImageIOPlugin>

namespace KOLT {

/// Reads the program's own icons where the toolkit's module for SVG is not there, as in the build
/// for Windows. It is linked into the program, and used like the toolkit's by QImageReader and
/// QIcon.
class SvgPlugin : public QImageIOPlugin
{
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QImageIOHandlerFactoryInterface_iid FILE "svg.json")

public:
    Capabilities capabilities(QIODevice* device, const QByteArray& format) const override;
    QImageIOHandler* create(QIODevice* device, const QByteArray& format) const override;
};

} // namespace KOLT
