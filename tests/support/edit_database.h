#pragma once
// Tests that vary a database take their own copy of it: the system's shared
// database is only read.
#include <memory>

#include "core/chemical_system.h"

namespace tormel::test {

// Gives `chem` a private copy of its database and returns it for editing.
inline Database& EditDatabase(ChemicalSystem& chem) {
    auto copy = std::make_shared<Database>(chem.db());
    chem.database = copy;
    return *copy;
}

}  // namespace tormel::test
