#include "ui/main/help_pages.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include "support/temp_folder.h"

namespace tormel {
namespace {

const QString kSourceHelp = QStringLiteral(TORMEL_SOURCE_DIR "/data/help/");

// The help topics the windows and the Help tile open.
constexpr int kTopics[] = {500, 1100, 2001, 2002, 2004, 2005, 2006, 2007, 2008, 2009, 2010};

AppFolders InstalledFolders() {
    AppFolders folders;
    folders.programFolder = TORMEL_PROGRAM_DIR;
    return folders;
}

TEST(HelpPages, EveryTopicHasItsOwnPageBesideTheProgramAndOthersOpenTheContents) {
    const AppFolders folders = InstalledFolders();
    EXPECT_EQ(HelpFolder(folders), QStringLiteral(TORMEL_PROGRAM_DIR "help/"));
    QStringList pages;
    for (int topic : kTopics) {
        SCOPED_TRACE(topic);
        const QString page = HelpTopicPage(topic);
        ASSERT_FALSE(page.isEmpty());
        EXPECT_FALSE(pages.contains(page)) << "two topics share " << page.toStdString();
        pages << page;
        const QUrl url = HelpTopicUrl(folders, topic);
        EXPECT_TRUE(url.isLocalFile());
        EXPECT_TRUE(QFileInfo::exists(url.toLocalFile())) << url.toLocalFile().toStdString();
    }
    for (const QUrl& url : {HelpContentsUrl(folders), HelpIndexUrl(folders), HelpSearchUrl(folders)})
        EXPECT_TRUE(QFileInfo::exists(url.toLocalFile())) << url.toLocalFile().toStdString();
    // unknown topics open the contents
    for (int topic : {0, -1, 499, 2003, 99999}) {
        EXPECT_TRUE(HelpTopicPage(topic).isEmpty()) << topic;
        EXPECT_EQ(HelpTopicUrl(folders, topic), HelpContentsUrl(folders)) << topic;
    }
}

TEST(HelpPages, MissingPagesAreNotOpened) {
    test::TempFolder empty;
    AppFolders folders;
    folders.programFolder = empty.Path();
    EXPECT_FALSE(OpenHelpTopic(folders, 500));
    EXPECT_FALSE(OpenHelpContents(folders));
    EXPECT_FALSE(OpenUrlInBrowser(QUrl()));
}

// Every page uses the shared stylesheet, has a title and the navigation, and
// every link between pages leads to a page that exists.
TEST(HelpPages, PagesAreCompleteAndTheirLinksResolve) {
    const QStringList files = QDir(kSourceHelp).entryList({QStringLiteral("*.html")});
    ASSERT_GE(files.size(), 20);
    static const QRegularExpression link(QStringLiteral("(?:href|src)=\"([^\"#:]+)(#[^\"]*)?\""));
    for (const QString& file : files) {
        SCOPED_TRACE(file.toStdString());
        QFile f(kSourceHelp + file);
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        const QString html = QString::fromUtf8(f.readAll());
        EXPECT_TRUE(html.contains(QStringLiteral("href=\"style.css\"")));
        EXPECT_TRUE(html.contains(QStringLiteral("<h1>")));
        EXPECT_TRUE(html.contains(QStringLiteral("href=\"contents.html\"")));
        for (auto it = link.globalMatch(html); it.hasNext();) {
            const QString target = it.next().captured(1);
            EXPECT_TRUE(QFileInfo::exists(kSourceHelp + target)) << "broken link to " << target.toStdString();
        }
        // Real content, not a placeholder.
        if (file != QStringLiteral("search.html")) {
            EXPECT_GT(html.size(), 900);
        }
    }
}

// The search page searches a copy of every page's text (between the heading
// and the footer, tags dropped, blanks collapsed, entities decoded); it must follow the pages.
TEST(HelpPages, SearchDataHoldsTheCurrentTextOfEveryPage) {
    QFile data(kSourceHelp + QStringLiteral("search_data.js"));
    ASSERT_TRUE(data.open(QIODevice::ReadOnly));
    const QByteArray js = data.readAll();
    const QJsonArray pages = QJsonDocument::fromJson(js.mid(js.indexOf('['), js.lastIndexOf(']') - js.indexOf('[') + 1)).array();
    ASSERT_GE(pages.size(), 20);
    static const QRegularExpression tag(QStringLiteral("<[^>]+>")), blanks(QStringLiteral("\\s+"));
    for (const QJsonValue& page : pages) {
        const QString file = page[QStringLiteral("page")].toString();
        SCOPED_TRACE(file.toStdString());
        QFile f(kSourceHelp + file);
        ASSERT_TRUE(f.open(QIODevice::ReadOnly));
        const QString html = QString::fromUtf8(f.readAll());
        const qsizetype from = html.indexOf(QStringLiteral("</h1>")) + 5;
        QString text = html.mid(from, html.indexOf(QStringLiteral("<footer>")) - from);
        text = text.replace(tag, QStringLiteral(" ")).replace(blanks, QStringLiteral(" ")).trimmed();
        text.replace(QStringLiteral("&lt;"), QStringLiteral("<")).replace(QStringLiteral("&gt;"), QStringLiteral(">"));
        text.replace(QStringLiteral("&amp;"), QStringLiteral("&"));
        EXPECT_EQ(page[QStringLiteral("text")].toString(), text);
    }
}

TEST(HelpLinks, SettingsOrOurOwnPage) {
    test::TempFolder home;
    Settings settings(home.File("TORMEL64.INI"));
    const AppFolders folders = InstalledFolders();
    const QUrl about = QUrl::fromLocalFile(HelpFolder(folders) + QStringLiteral("about.html"));
    for (WebLink link : {WebLink::Website, WebLink::Email, WebLink::Social, WebLink::Video})
        EXPECT_EQ(WebLinkUrl(folders, settings, link), about);

    settings.WriteSettingString("Links", "Website", " https://water.example.org/tormel ");
    settings.WriteSettingString("Links", "Email", "makers@example.org");
    settings.WriteSettingString("Links", "Video", "mailto:video@example.org");
    EXPECT_EQ(WebLinkUrl(folders, settings, WebLink::Website), QUrl(QStringLiteral("https://water.example.org/tormel")));
    const QUrl mail = WebLinkUrl(folders, settings, WebLink::Email);
    EXPECT_EQ(mail.scheme(), QStringLiteral("mailto"));
    EXPECT_EQ(mail.path(), QStringLiteral("makers@example.org"));
    EXPECT_TRUE(mail.query().contains(QStringLiteral("subject=")));
    EXPECT_EQ(WebLinkUrl(folders, settings, WebLink::Video), QUrl(QStringLiteral("mailto:video@example.org")));
    EXPECT_EQ(WebLinkUrl(folders, settings, WebLink::Social), about) << "keys not set keep our page";
}

}  // namespace
}  // namespace tormel
