#include "ui/main/single_instance.h"

#include <QDataStream>
#include <QLocalServer>
#include <QLocalSocket>
#include <QVariant>

namespace tormel {

namespace {

constexpr int kMaxPathChars = 260;
constexpr int kHeaderBytes = 8;

}  // namespace

QByteArray HandoverMessage(int dataCode, const QString& path) {
    const QString text = path.left(kMaxPathChars);
    QByteArray data;
    QDataStream out(&data, QIODevice::WriteOnly);
    out.setByteOrder(QDataStream::LittleEndian);
    const auto byteCount = static_cast<qint32>((text.size() + 1) * 2);
    out << static_cast<qint32>(dataCode) << byteCount;
    for (QChar c : text) out << static_cast<quint16>(c.unicode());
    out << static_cast<quint16>(0);
    return data;
}

InstanceServer::InstanceServer(std::function<int(int, const QString&)> receive, QObject* parent)
    : QObject(parent), receive_(std::move(receive)) {}

InstanceServer::~InstanceServer() { Close(); }

bool InstanceServer::Listen(const QString& name) {
    if (IsListening()) return true;
    if (!server_) {
        server_ = new QLocalServer(this);
        server_->setSocketOptions(QLocalServer::UserAccessOption);
        connect(server_, &QLocalServer::newConnection, this, &InstanceServer::Serve);
    }
    if (server_->listen(name)) return true;
    // a server name left behind by an ended process: nobody answers on it
    QLocalSocket probe;
    probe.connectToServer(name);
    if (probe.waitForConnected(500)) return false;
    QLocalServer::removeServer(name);
    return server_->listen(name);
}

bool InstanceServer::IsListening() const { return server_ && server_->isListening(); }

void InstanceServer::Close() {
    if (server_) server_->close();
}

void InstanceServer::Serve() {
    while (QLocalSocket* socket = server_->nextPendingConnection()) {
        connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
        connect(socket, &QLocalSocket::readyRead, socket, [this, socket] {
            if (socket->property("answered").toBool()) return;
            const QByteArray head = socket->peek(kHeaderBytes);
            if (head.size() < kHeaderBytes) return;
            QDataStream in(head);
            in.setByteOrder(QDataStream::LittleEndian);
            qint32 code = 0, byteCount = 0;
            in >> code >> byteCount;
            if (byteCount < 0 || byteCount > (kMaxPathChars + 1) * 2) byteCount = 0;
            if (socket->bytesAvailable() < kHeaderBytes + byteCount) return;
            socket->read(kHeaderBytes);
            const QByteArray body = socket->read(byteCount);
            QString path;
            for (qsizetype i = 0; i + 1 < body.size(); i += 2) {
                const auto unit = static_cast<char16_t>(static_cast<unsigned char>(body[i]) |
                                                        (static_cast<unsigned char>(body[i + 1]) << 8));
                if (unit == 0) break;
                path.append(QChar(unit));
            }
            socket->setProperty("answered", true);
            const int answer = receive_ ? receive_(code, path.left(kMaxPathChars)) : 0;
            const char reply = static_cast<char>(answer != 0 ? 1 : 0);
            socket->write(&reply, 1);
            socket->flush();
        });
    }
}

int SendHandover(const QString& path, int dataCode, const QString& name, int timeoutMs) {
    QLocalSocket socket;
    socket.connectToServer(name);
    if (!socket.waitForConnected(1000)) return 0;
    socket.write(HandoverMessage(dataCode, path));
    if (!socket.waitForBytesWritten(timeoutMs)) return 0;
    if (!socket.waitForReadyRead(timeoutMs)) return 0;
    const QByteArray reply = socket.read(1);
    return reply.size() == 1 && reply[0] != 0 ? 1 : 0;
}

}  // namespace tormel
