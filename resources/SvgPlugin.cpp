#include "resources/SvgPlugin.h"

#include "resources/SvgDrawing.h"

#include <QImage>
#include <QVariant>

namespace KOLT {

namespace {

/// QIcon scales a picture down but not up: this suits every icon of the windows.
constexpr QSize largestIcon(256, 256);

class SvgHandler : public QImageIOHandler
{
public:
    bool canRead() const override { return !m_isRead && device() != nullptr; }

    bool read(QImage* image) override
    {
        if (!canRead())
            return false;
        m_isRead = true;
        QImage drawn(m_size, QImage::Format_ARGB32_Premultiplied);
        if (drawn.isNull())
            return false;
        drawn.fill(Qt::transparent);
        QPainter painter(&drawn);
        if (!drawSvg(device()->readAll(), painter, QRectF(QPointF(0.0, 0.0), m_size)))
            return false;
        painter.end();
        *image = drawn;
        return true;
    }

    bool supportsOption(ImageOption option) const override
    {
        return option == Size || option == ScaledSize;
    }

    QVariant option(ImageOption option) const override
    {
        return option == Size || option == ScaledSize ? QVariant(m_size) : QVariant();
    }

    void setOption(ImageOption option, const QVariant& value) override
    {
        if (option == ScaledSize && !value.toSize().isEmpty())
            m_size = value.toSize();
    }

private:
    QSize m_size = largestIcon;
    bool m_isRead = false;
};

} // namespace

QImageIOPlugin::Capabilities SvgPlugin::capabilities(QIODevice* device,
                                                     const QByteArray& format) const
{
    if (format == "svg")
        return CanRead;
    const bool isUnknown = format.isEmpty() && device != nullptr && device->isReadable();
    return isUnknown && device->peek(4) == "<svg" ? CanRead : Capabilities();
}

QImageIOHandler* SvgPlugin::create(QIODevice* device, const QByteArray& format) const
{
    auto* const handler = new SvgHandler;
    handler->setDevice(device);
    handler->setFormat(format.isEmpty() ? QByteArray("svg") : format);
    return handler;
}

} // namespace KOLT
