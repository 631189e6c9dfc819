#include "ui/main/help_pages.h"

#include <QDesktopServices>
#include <QFileInfo>

namespace tormel {
namespace {

struct TopicPage {
    int topic;
    const char* page;
};

// Topic numbers used by the windows' help buttons and the Help menu.
constexpr TopicPage kTopics[] = {
    {500, "getting_started.html"},   // Help tile: getting started
    {1100, "languages.html"},        // language window
    {2001, "input_editor.html"},     // input editor
    {2002, "output_viewer.html"},    // output viewer
    {2004, "options_remember.html"},    // options dialog, page 1 ...
    {2005, "options_updates.html"},
    {2006, "options_file_types.html"},
    {2007, "options_language.html"},
    {2008, "options_colours.html"},     // ... page 5
    {2009, "updates.html"},              // updates window
    {2010, "comparison.html"},           // side-by-side comparison
};

constexpr const char* kContentsPage = "contents.html";
constexpr const char* kIndexPage = "keyword_index.html";
constexpr const char* kSearchPage = "search.html";
constexpr const char* kAboutPage = "about.html";

QUrl PageUrl(const AppFolders& folders, const QString& page) {
    return QUrl::fromLocalFile(HelpFolder(folders) + page);
}

}  // namespace

QString HelpFolder(const AppFolders& folders) {
    return QString::fromStdString(folders.programFolder) + QStringLiteral("help/");
}

QString HelpTopicPage(int topic) {
    for (const TopicPage& entry : kTopics)
        if (entry.topic == topic) return QString::fromLatin1(entry.page);
    return {};
}

QUrl HelpTopicUrl(const AppFolders& folders, int topic) {
    const QString page = HelpTopicPage(topic);
    return PageUrl(folders, page.isEmpty() ? QString::fromLatin1(kContentsPage) : page);
}

QUrl HelpContentsUrl(const AppFolders& folders) { return PageUrl(folders, QString::fromLatin1(kContentsPage)); }
QUrl HelpIndexUrl(const AppFolders& folders) { return PageUrl(folders, QString::fromLatin1(kIndexPage)); }
QUrl HelpSearchUrl(const AppFolders& folders) { return PageUrl(folders, QString::fromLatin1(kSearchPage)); }

bool OpenUrlInBrowser(const QUrl& url) {
    if (!url.isValid() || url.isEmpty()) return false;
    if (url.isLocalFile() && !QFileInfo::exists(url.toLocalFile())) return false;
    return QDesktopServices::openUrl(url);
}

bool OpenHelpTopic(const AppFolders& folders, int topic) { return OpenUrlInBrowser(HelpTopicUrl(folders, topic)); }
bool OpenHelpContents(const AppFolders& folders) { return OpenUrlInBrowser(HelpContentsUrl(folders)); }
bool OpenHelpIndex(const AppFolders& folders) { return OpenUrlInBrowser(HelpIndexUrl(folders)); }
bool OpenHelpSearch(const AppFolders& folders) { return OpenUrlInBrowser(HelpSearchUrl(folders)); }

QUrl WebLinkUrl(const AppFolders& folders, const Settings& settings, WebLink link) {
    const char* key = "Website";
    switch (link) {
        case WebLink::Website: key = "Website"; break;
        case WebLink::Email: key = "Email"; break;
        case WebLink::Social: key = "Social"; break;
        case WebLink::Video: key = "Video"; break;
    }
    const QString stored = QString::fromStdString(settings.ReadSettingString("Links", key, "")).trimmed();
    if (stored.isEmpty()) return PageUrl(folders, QString::fromLatin1(kAboutPage));
    QUrl url = QUrl::fromUserInput(stored);
    if (link == WebLink::Email && !stored.contains(QLatin1Char(':')))
        url = QUrl(QStringLiteral("mailto:") + stored + QStringLiteral("?subject=TORMEL%20Next"));
    return url;
}

bool OpenWebLink(const AppFolders& folders, const Settings& settings, WebLink link) {
    return OpenUrlInBrowser(WebLinkUrl(folders, settings, link));
}

}  // namespace tormel
