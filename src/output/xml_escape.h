#pragma once
// Text as an XML document may hold it.
#include <string>
#include <string_view>

namespace tormel {

// Character data: "&", "<" and ">" become their predefined entity
// references. Control characters that XML 1.0 cannot hold at all (below
// U+0020 except tab, line feed and carriage return) are left out.
std::string XmlEscape(std::string_view text);

// An attribute value between double quotes: as XmlEscape, and the double
// quote becomes "&quot;".
std::string XmlEscapeAttribute(std::string_view text);

}  // namespace tormel
