#pragma once
// The program's help: HTML pages of our own ("help/" in the program folder),
// one per topic number, plus contents, index and search pages, opened in the
// user's browser; and the web links of the information area and the Help
// tile, taken from the settings file ([Links]) and defaulting to our own pages.
#include <QString>
#include <QUrl>

#include "shell/app_folders.h"
#include "shell/settings.h"

namespace tormel {

// programFolder + "help/"
QString HelpFolder(const AppFolders& folders);

// The page file name of a topic number ("getting_started.html" for 500), or
// an empty string for a number without a page of its own.
QString HelpTopicPage(int topic);

// The page a topic opens: its own page, or the contents page for an unknown
// number.
QUrl HelpTopicUrl(const AppFolders& folders, int topic);
QUrl HelpContentsUrl(const AppFolders& folders);
QUrl HelpIndexUrl(const AppFolders& folders);
QUrl HelpSearchUrl(const AppFolders& folders);

// Open the page in the browser; false when it could not be opened (no page,
// no browser).
bool OpenHelpTopic(const AppFolders& folders, int topic);
bool OpenHelpContents(const AppFolders& folders);
bool OpenHelpIndex(const AppFolders& folders);
bool OpenHelpSearch(const AppFolders& folders);

// The links behind the Help tile's contact buttons and the information
// area's web link. Settings [Links] "Website", "Email", "Social", "Video";
// each empty or missing key falls back to our own help page about the program
// and how to reach its makers.
enum class WebLink { Website, Email, Social, Video };
QUrl WebLinkUrl(const AppFolders& folders, const Settings& settings, WebLink link);
bool OpenWebLink(const AppFolders& folders, const Settings& settings, WebLink link);

// Opens a URL with the desktop's default handler.
bool OpenUrlInBrowser(const QUrl& url);

}  // namespace tormel
