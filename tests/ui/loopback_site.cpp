#include "ui/loopback_site.h"

#include <QTcpSocket>

namespace tormel::test {

LoopbackSite::LoopbackSite() {
    server_.listen(QHostAddress::LocalHost);
    connect(&server_, &QTcpServer::newConnection, this, [this] {
        while (QTcpSocket* socket = server_.nextPendingConnection()) {
            auto request = std::make_shared<QByteArray>();
            connect(socket, &QTcpSocket::readyRead, socket, [this, socket, request] {
                *request += socket->readAll();
                if (!request->contains("\r\n\r\n")) return;
                const QString page = QString::fromLatin1(request->split(' ').value(1)).mid(1);
                ++requests_[page];
                const auto found = pages_.find(page);
                const QByteArray body = found == pages_.end() ? QByteArray("not found") : found->second;
                const QByteArray status = found == pages_.end() ? "404 Not Found" : "200 OK";
                socket->write("HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) +
                              "\r\nConnection: close\r\n\r\n" + body);
                socket->disconnectFromHost();
            });
            connect(socket, &QTcpSocket::disconnected, socket, &QObject::deleteLater);
        }
    });
}

std::string LoopbackSite::Address() const {
    return "http://127.0.0.1:" + std::to_string(server_.serverPort()) + "/";
}

int LoopbackSite::Requests(const QString& page) const {
    const auto found = requests_.find(page);
    return found == requests_.end() ? 0 : found->second;
}

QByteArray Utf16Text(const QString& text) {
    QString crlf = text;
    crlf.replace(QLatin1Char('\n'), QStringLiteral("\r\n"));
    return QByteArray("\xFF\xFE", 2) +
           QByteArray(reinterpret_cast<const char*>(crlf.utf16()), crlf.size() * 2);
}

}  // namespace tormel::test
