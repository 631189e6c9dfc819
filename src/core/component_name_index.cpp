#include "core/component_name_index.h"

#include "core/ascii_case.h"
#include "core/database.h"

namespace tormel {

namespace {

// FNV-1a over the folded bytes.
uint64_t FoldedHash(std::string_view name) {
    uint64_t h = 14695981039346656037ull;
    for (const char c : name) {
        h ^= static_cast<unsigned char>(FoldAsciiLetter(c));
        h *= 1099511628211ull;
    }
    return h;
}

}  // namespace

ComponentNameIndex::ComponentNameIndex(const std::vector<Component>& components)
    : componentCount_(components.size()) {
    size_t size = 8;
    while (size < 2 * components.size()) size *= 2;
    slots_.assign(size, -1);
    const size_t mask = size - 1;
    // linear probing: of two names that fold alike the lower index lies
    // earlier on their common probe path, so a search meets it first
    for (size_t i = 0; i < components.size(); ++i) {
        size_t slot = FoldedHash(components[i].name) & mask;
        while (slots_[slot] >= 0) slot = (slot + 1) & mask;
        slots_[slot] = static_cast<int32_t>(i);
    }
}

int32_t ComponentNameIndex::Find(const std::vector<Component>& components, std::string_view name) const {
    const size_t mask = slots_.size() - 1;
    for (size_t slot = FoldedHash(name) & mask; slots_[slot] >= 0; slot = (slot + 1) & mask) {
        const int32_t i = slots_[slot];
        if (EqualsIgnoreCase(components[static_cast<size_t>(i)].name, name)) return i;
    }
    return -1;
}

bool ComponentNameIndex::Fits(const Database& db) const { return componentCount_ == db.components.size(); }

int32_t FindComponentIgnoreCase(const Database& db, std::string_view name) {
    if (db.componentNames && db.componentNames->Fits(db)) return db.componentNames->Find(db.components, name);
    for (size_t i = 0; i < db.components.size(); ++i)
        if (EqualsIgnoreCase(db.components[i].name, name)) return static_cast<int32_t>(i);
    return -1;
}

}  // namespace tormel
