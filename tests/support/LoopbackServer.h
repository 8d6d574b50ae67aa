#pragma once

#include <QBuffer>
#include <QHash>
#include <QHostAddress>
#include <QImage>
#include <QStringList>
#include <QTcpServer>
#include <QTcpSocket>

#include <algorithm>
#include <functional>

namespace Tessa::Test {

/// The image encoded as a file.
inline QByteArray encoded(const QImage& image, const char* format = "png")
{
    QByteArray body;
    QBuffer buffer(&body);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return body;
}

/// A web server on the loopback interface with scripted answers that records its requests.
class LoopbackServer : public QTcpServer
{
public:
    struct Request
    {
        QByteArray path;
        QHash<QByteArray, QByteArray> headers; ///< names in lower case
    };

    /// Returns the whole answer, after which the connection is closed; empty: never answers.
    using Handler = std::function<QByteArray(const Request&)>;

    LoopbackServer()
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            while (QTcpSocket* const socket = nextPendingConnection())
                serve(socket);
        });
    }

    QString address() const { return QStringLiteral("http://127.0.0.1:%1").arg(serverPort()); }

    static QByteArray answer(const QByteArray& status, const QByteArray& body = QByteArray(),
                             const QByteArray& headers = QByteArray())
    {
        return "HTTP/1.1 " + status + "\r\n" + headers +
               "Content-Length: " + QByteArray::number(body.size()) +
               "\r\nConnection: close\r\n\r\n" + body;
    }

    Handler handler;
    QList<Request> requests;

private:
    void serve(QTcpSocket* socket)
    {
        connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
            const QByteArray head = socket->peek(65536);
            if (!head.contains("\r\n\r\n"))
                return;
            socket->readAll();
            Request request;
            QList<QByteArray> lines = head.trimmed().split('\n');
            request.path = lines.takeFirst().split(' ').value(1);
            for (const QByteArray& line : lines) {
                const qsizetype colon = line.indexOf(':');
                request.headers[line.left(colon).toLower()] = line.mid(colon + 1).trimmed();
            }
            requests.append(request);
            const QByteArray answer = handler(request);
            if (answer.isEmpty())
                return;
            socket->write(answer);
            socket->disconnectFromHost();
        });
    }
};

} // namespace Tessa::Test
