#pragma once
// A working folder for the batch benchmarks: the shipped database copied to
// Data/ and loaded, the default language, empty Input/ and Output/ folders;
// removed with everything in it when the object goes.
#include <memory>
#include <string>

#include "core/ui_services.h"
#include "shell/workspace.h"

namespace tormel::bench {

struct BenchWorkspace {
    std::string root;  // ends with "/"
    UiServices ui;
    std::unique_ptr<Workspace> ws;
    bool loaded = false;  // the database could be loaded

    // `name` tells the folders of several benchmarks apart.
    explicit BenchWorkspace(const std::string& name);
    ~BenchWorkspace();
    BenchWorkspace(const BenchWorkspace&) = delete;
    BenchWorkspace& operator=(const BenchWorkspace&) = delete;
};

}  // namespace tormel::bench
