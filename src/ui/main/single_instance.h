#pragma once
// One running program per user: the first instance listens on the local
// server "TORMELcVexa"; a second start hands its file to it (data code 275
// followed by the path as UTF-16 text with its terminating zero) and ends
// when the running instance answers non-zero.
#include <QObject>
#include <QString>
#include <functional>

class QLocalServer;

namespace tormel {

constexpr const char* kInstanceServerName = "TORMELcVexa";
constexpr int kHandoverDataCode = 275;

// The message bytes: data code (32 bits), byte count (32 bits), the UTF-16LE path with its zero.
QByteArray HandoverMessage(int dataCode, const QString& path);

class InstanceServer : public QObject {
    Q_OBJECT
public:
    // `receive` answers a handover (data code, path): 0 refused, else taken.
    explicit InstanceServer(std::function<int(int dataCode, const QString& path)> receive,
                            QObject* parent = nullptr);
    ~InstanceServer() override;

    // Starts listening (the single-instance mark); true when it is held.
    bool Listen(const QString& name = QString::fromLatin1(kInstanceServerName));
    bool IsListening() const;
    void Close();

private:
    void Serve();

    std::function<int(int, const QString&)> receive_;
    QLocalServer* server_ = nullptr;
};

// Hands `path` (at most 260 characters) to a running instance; the answer,
// 0 when there is none or it refused.
int SendHandover(const QString& path, int dataCode = kHandoverDataCode,
                 const QString& name = QString::fromLatin1(kInstanceServerName), int timeoutMs = 120000);

}  // namespace tormel
