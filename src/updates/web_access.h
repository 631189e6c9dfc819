#pragma once
// The program's web site: its base address (a setting, so a test can serve
// it locally), text downloads and file downloads. Every call waits for its
// answer while the caller's events keep being processed.
#include <string>
#include <vector>

namespace tormel {

class Settings;

// [Links] "UpdateSite", ending with "/"; empty while no web site is set up
// (the program then checks for no updates at start-up and opens the documents
// shipped with it).
std::string UpdateSiteAddress(const Settings& settings);

// A UTF-16LE text with its byte-order mark, split at its line feeds (a CR
// before a line feed is dropped): line feeds + 1 lines. An empty result means
// failure: no answer, an error status, or a text that is not UTF-16LE.
std::vector<std::string> FetchTextLines(const std::string& url);

// Downloads the address into `path` (replaced whole or not at all); false
// when it could not be fetched or written.
bool DownloadFile(const std::string& url, const std::string& path);

}  // namespace tormel
