#pragma once
// A small JSON reader for the reference cases: objects (members kept in file
// order), arrays, strings, numbers, true, false and null.
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tormel::test {

struct JsonValue {
    enum class Kind { Null, Boolean, Number, String, Array, Object };
    Kind kind = Kind::Null;
    bool boolean = false;
    double number = 0;
    std::string text;
    std::vector<JsonValue> items;
    std::vector<std::pair<std::string, JsonValue>> members;

    // member by key; nullptr when absent or not an object
    const JsonValue* Find(std::string_view key) const;
    double NumberOr(std::string_view key, double fallback) const;
    std::string TextOr(std::string_view key, std::string fallback) const;
    bool BoolOr(std::string_view key, bool fallback) const;
};

// Parses a whole document; the error names the byte offset.
std::optional<JsonValue> ParseJson(std::string_view text, std::string* error = nullptr);
std::optional<JsonValue> ReadJsonFile(const std::string& path, std::string* error = nullptr);

}  // namespace tormel::test
