#pragma once
// The last-write date of a file as "%d-%02d-%02d" text, which the update
// list and the document signatures compare as text.
#include <string>

namespace tormel {

enum class DateZone { Local, Utc };

// Empty when the file does not exist.
std::string FileDateText(const std::string& path, DateZone zone);

// A document whose signature (the first line of its ".dtsig" file) is
// greater as text than the document's stored date is fetched again.
bool SignatureIsNewer(const std::string& signatureFirstLine, const std::string& documentDate);

}  // namespace tormel
