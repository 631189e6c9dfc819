#pragma once
// A text that copies share instead of duplicating. The literature of the
// database is cited by thousands of result records in a batch; each record
// holds the database's own text rather than a copy of it. The text never
// changes once made; a new text replaces it as a whole.
#include <iosfwd>
#include <memory>
#include <string>
#include <string_view>

namespace tormel {

class SharedText {
public:
    SharedText() = default;
    SharedText(std::string text)  // NOLINT(google-explicit-constructor): a text is a text
        : text_(text.empty() ? nullptr : std::make_shared<const std::string>(std::move(text))) {}
    SharedText(const char* text) : SharedText(std::string(text)) {}  // NOLINT(google-explicit-constructor)

    const std::string& str() const { return text_ ? *text_ : Empty(); }
    operator const std::string&() const { return str(); }  // NOLINT(google-explicit-constructor)
    std::string_view view() const { return str(); }
    bool empty() const { return !text_ || text_->empty(); }
    size_t size() const { return text_ ? text_->size() : 0; }

    friend bool operator==(const SharedText& a, const SharedText& b) { return a.view() == b.view(); }
    friend bool operator==(const SharedText& a, std::string_view b) { return a.view() == b; }
    friend bool operator==(const SharedText& a, const std::string& b) { return a.view() == b; }
    friend bool operator==(const SharedText& a, const char* b) { return a.view() == std::string_view(b); }

private:
    static const std::string& Empty();
    std::shared_ptr<const std::string> text_;
};

std::ostream& operator<<(std::ostream& out, const SharedText& text);

}  // namespace tormel
