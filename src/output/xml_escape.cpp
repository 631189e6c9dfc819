#include "output/xml_escape.h"

namespace tormel {

namespace {

std::string Escape(std::string_view text, bool attribute) {
    std::string out;
    out.reserve(text.size());
    for (const char c : text) {
        switch (c) {
            case '&':
                out += "&amp;";
                break;
            case '<':
                out += "&lt;";
                break;
            case '>':
                out += "&gt;";
                break;
            case '"':
                if (attribute)
                    out += "&quot;";
                else
                    out += c;
                break;
            default:
                if (static_cast<unsigned char>(c) < 0x20 && c != '\t' && c != '\n' && c != '\r') break;
                out += c;
        }
    }
    return out;
}

}  // namespace

std::string XmlEscape(std::string_view text) { return Escape(text, false); }

std::string XmlEscapeAttribute(std::string_view text) { return Escape(text, true); }

}  // namespace tormel
