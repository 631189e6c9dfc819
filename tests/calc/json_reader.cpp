#include "json_reader.h"

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace tormel::test {

const JsonValue* JsonValue::Find(std::string_view key) const {
    if (kind != Kind::Object) return nullptr;
    for (const auto& [name, value] : members)
        if (name == key) return &value;
    return nullptr;
}

double JsonValue::NumberOr(std::string_view key, double fallback) const {
    const JsonValue* v = Find(key);
    return v && v->kind == Kind::Number ? v->number : fallback;
}

std::string JsonValue::TextOr(std::string_view key, std::string fallback) const {
    const JsonValue* v = Find(key);
    return v && v->kind == Kind::String ? v->text : fallback;
}

bool JsonValue::BoolOr(std::string_view key, bool fallback) const {
    const JsonValue* v = Find(key);
    return v && v->kind == Kind::Boolean ? v->boolean : fallback;
}

namespace {

class Parser {
public:
    explicit Parser(std::string_view text) : s_(text) {}

    std::optional<JsonValue> Document(std::string* error) {
        JsonValue v;
        if (!Value(v, 0) || (SkipSpace(), pos_ != s_.size())) {
            if (error) *error = "JSON syntax error at byte " + std::to_string(pos_);
            return std::nullopt;
        }
        return v;
    }

private:
    static constexpr int kMaxDepth = 64;
    std::string_view s_;
    size_t pos_ = 0;

    void SkipSpace() {
        while (pos_ < s_.size() && (s_[pos_] == ' ' || s_[pos_] == '\n' || s_[pos_] == '\r' || s_[pos_] == '\t'))
            ++pos_;
    }
    bool Literal(std::string_view word) {
        if (s_.substr(pos_, word.size()) != word) return false;
        pos_ += word.size();
        return true;
    }
    // Steps over `c` when it comes next.
    bool Consume(char c) {
        if (pos_ >= s_.size() || s_[pos_] != c) return false;
        ++pos_;
        return true;
    }
    // The items of an object or an array, from its opening bracket to
    // `close`, separated by commas; `item` reads one.
    template <class ReadItem>
    bool Items(char close, ReadItem item) {
        ++pos_;
        SkipSpace();
        if (Consume(close)) return true;
        for (;;) {
            if (!item()) return false;
            SkipSpace();
            if (!Consume(',')) return Consume(close);
        }
    }
    // The cases are plain ASCII: a backslash keeps the character after it
    // (\" and \\; other escapes do not occur there).
    bool String(std::string& out) {
        if (!Consume('"')) return false;
        while (pos_ < s_.size() && s_[pos_] != '"') {
            if (s_[pos_] == '\\') ++pos_;
            if (pos_ < s_.size()) out += s_[pos_++];
        }
        return Consume('"');
    }
    bool Number(double& out) {
        const std::string rest(s_.substr(pos_, 64));
        char* end = nullptr;
        out = std::strtod(rest.c_str(), &end);
        if (end == rest.c_str()) return false;
        pos_ += static_cast<size_t>(end - rest.c_str());
        return true;
    }
    bool Value(JsonValue& v, int depth) {
        if (depth > kMaxDepth) return false;
        SkipSpace();
        if (pos_ >= s_.size()) return false;
        const char c = s_[pos_];
        if (c == '{') {
            v.kind = JsonValue::Kind::Object;
            return Items('}', [&] {
                SkipSpace();
                std::string key;
                if (!String(key)) return false;
                SkipSpace();
                if (!Consume(':')) return false;
                JsonValue member;
                if (!Value(member, depth + 1)) return false;
                v.members.emplace_back(std::move(key), std::move(member));
                return true;
            });
        }
        if (c == '[') {
            v.kind = JsonValue::Kind::Array;
            return Items(']', [&] {
                JsonValue item;
                if (!Value(item, depth + 1)) return false;
                v.items.push_back(std::move(item));
                return true;
            });
        }
        if (c == '"') {
            v.kind = JsonValue::Kind::String;
            return String(v.text);
        }
        if (Literal("true")) { v.kind = JsonValue::Kind::Boolean; v.boolean = true; return true; }
        if (Literal("false")) { v.kind = JsonValue::Kind::Boolean; v.boolean = false; return true; }
        if (Literal("null")) { v.kind = JsonValue::Kind::Null; return true; }
        v.kind = JsonValue::Kind::Number;
        return Number(v.number);
    }
};

}  // namespace

std::optional<JsonValue> ParseJson(std::string_view text, std::string* error) { return Parser(text).Document(error); }

std::optional<JsonValue> ReadJsonFile(const std::string& path, std::string* error) {
    std::ifstream in(path, std::ios::binary);
    if (!in) {
        if (error) *error = "cannot open " + path;
        return std::nullopt;
    }
    std::stringstream buffer;
    buffer << in.rdbuf();
    return ParseJson(buffer.str(), error);
}

}  // namespace tormel::test
