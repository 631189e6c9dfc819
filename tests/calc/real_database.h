#pragma once
// The converted MINTEQA2 database shipped in data/RawData, loaded once per
// test run from a temporary copy through the program's own loader.
#include <cstddef>

#include "core/chemical_system.h"

namespace tormel::test {

// A system over that database, nothing assembled; its copies share the
// database. nullptr when the raw data files cannot be loaded.
const ChemicalSystem* RealDatabase();
// How many messages the loader showed in that load (none are expected).
size_t RealDatabaseMessages();

}  // namespace tormel::test
