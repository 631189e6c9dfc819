#pragma once
// The components by name, ASCII letter case ignored, as input files name
// them: a hash table built once per database, so that reading a line costs a
// hash and a comparison or two instead of a comparison with every component.
// Read only once built, shared by copies of the database and by threads.
#include <cstdint>
#include <string_view>
#include <vector>

namespace tormel {

struct Component;
struct Database;

class ComponentNameIndex {
public:
    explicit ComponentNameIndex(const std::vector<Component>& components);

    // The lowest index whose name equals `name` with ASCII letters folded;
    // -1 when there is none. `components` are the ones the index was built
    // from: every candidate is compared with its name.
    int32_t Find(const std::vector<Component>& components, std::string_view name) const;

    // Whether the index was built for a database with as many components.
    bool Fits(const Database& db) const;

private:
    std::vector<int32_t> slots_;  // component index or -1; a power of two long
    size_t componentCount_ = 0;
};

// The lowest component index whose name equals `name` with ASCII letters
// folded, -1 when there is none: through the database's index when it has
// a fitting one, otherwise by comparing every component.
int32_t FindComponentIgnoreCase(const Database& db, std::string_view name);

}  // namespace tormel
