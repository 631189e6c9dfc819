#pragma once
// A tiny web site on 127.0.0.1 for the tests of the update check and the
// documents: it answers GET requests for the pages it was given (404 for
// any other) and counts the requests per page.
#include <QByteArray>
#include <QString>
#include <QTcpServer>
#include <map>
#include <string>

namespace tormel::test {

class LoopbackSite : public QObject {
public:
    LoopbackSite();
    // "http://127.0.0.1:port/"
    std::string Address() const;
    void Serve(const QString& page, const QByteArray& body) { pages_[page] = body; }
    void Remove(const QString& page) { pages_.erase(page); }
    int Requests(const QString& page) const;

private:
    QTcpServer server_;
    std::map<QString, QByteArray> pages_;
    std::map<QString, int> requests_;
};

// UTF-16LE with byte-order mark and CR LF line ends.
QByteArray Utf16Text(const QString& text);

}  // namespace tormel::test
