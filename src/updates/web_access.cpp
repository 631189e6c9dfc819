#include "updates/web_access.h"

#include <QEventLoop>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <optional>

#include "core/text_file.h"
#include "shell/settings.h"

namespace tormel {

namespace {

constexpr int kTimeoutMilliseconds = 20000;

// The body of a successful answer; nothing on any failure.
std::optional<QByteArray> Fetch(const std::string& url) {
    QNetworkAccessManager manager;
    QNetworkRequest request{QUrl(QString::fromStdString(url))};
    request.setHeader(QNetworkRequest::UserAgentHeader, QStringLiteral("Mozilla/5.0"));
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::NoLessSafeRedirectPolicy);
    QNetworkReply* reply = manager.get(request);
    QEventLoop loop;
    QTimer timeout;
    timeout.setSingleShot(true);
    QObject::connect(&timeout, &QTimer::timeout, reply, &QNetworkReply::abort);
    QObject::connect(reply, &QNetworkReply::finished, &loop, &QEventLoop::quit);
    timeout.start(kTimeoutMilliseconds);
    if (!reply->isFinished()) loop.exec();
    std::optional<QByteArray> body;
    const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
    if (reply->error() == QNetworkReply::NoError && (status == 0 || status == 200)) body = reply->readAll();
    reply->deleteLater();
    return body;
}

}  // namespace

std::string UpdateSiteAddress(const Settings& settings) {
    std::string address = settings.ReadSettingString("Links", "UpdateSite", "");
    if (!address.empty() && address.back() != '/') address += '/';
    return address;
}

std::vector<std::string> FetchTextLines(const std::string& url) {
    const std::optional<QByteArray> body = Fetch(url);
    if (!body || body->size() < 2 || static_cast<unsigned char>((*body)[0]) != 0xFF ||
        static_cast<unsigned char>((*body)[1]) != 0xFE)
        return {};
    const QString text = QString::fromUtf16(reinterpret_cast<const char16_t*>(body->constData() + 2), (body->size() - 2) / 2);
    std::vector<std::string> lines;
    for (QString line : text.split(QLatin1Char('\n'))) {
        if (line.endsWith(QLatin1Char('\r'))) line.chop(1);
        lines.push_back(line.toStdString());
    }
    return lines;
}

bool DownloadFile(const std::string& url, const std::string& path) {
    const std::optional<QByteArray> body = Fetch(url);
    return body && WriteFileAtomically(path, std::string_view(body->constData(), static_cast<size_t>(body->size())));
}

}  // namespace tormel
