// Input and output files open in the desktop program from the file manager:
// registered into a fresh user data folder and asked back through the
// freedesktop tools, as a file manager asks.
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include "shell/file_associations.h"
#include "support/scoped_env.h"
#include "support/temp_folder.h"

namespace tormel::test {

namespace {

namespace fs = std::filesystem;

bool HaveTools() {
    return std::system("command -v xdg-mime >/dev/null 2>&1 && command -v update-mime-database >/dev/null 2>&1 && "
                       "command -v mimetype >/dev/null 2>&1") == 0;
}

// What a command prints, without the final line feed.
std::string Output(const std::string& command) {
    std::string text;
    if (FILE* pipe = popen((command + " 2>/dev/null").c_str(), "r")) {
        std::array<char, 256> buffer{};
        while (fgets(buffer.data(), buffer.size(), pipe)) text += buffer.data();
        pclose(pipe);
    }
    while (!text.empty() && text.back() == '\n') text.pop_back();
    return text;
}

// The user's folders of this test; xdg-mime asks in its generic way, as
// outside a desktop session.
struct UserFolders {
    TempFolder folder;
    XdgHomes homes{folder.Path() + "data", folder.Path() + "config"};
    ScopedEnv data{"XDG_DATA_HOME", homes.data}, config{"XDG_CONFIG_HOME", homes.config};
    UserFolders() {
        for (const char* name : {"XDG_CURRENT_DESKTOP", "DESKTOP_SESSION", "KDE_FULL_SESSION", "GNOME_DESKTOP_SESSION_ID"})
            unsetenv(name);
    }
};

}  // namespace

TEST(FileAssociations, RegisteredFilesOpenInTheProgramAndUnregisteringForgetsThem) {
    if (!HaveTools()) {
        if (std::getenv("CI")) FAIL() << "xdg-utils, shared-mime-info and libfile-mimeinfo-perl must be installed in CI";
        GTEST_SKIP() << "xdg-mime, update-mime-database or mimetype not installed";
    }
    UserFolders user;
    const std::string input = user.folder.File("lake water.i64");
    const std::string output = user.folder.File("lake water.o64");
    fs::copy_file(TORMEL_SOURCE_DIR "/data/examples/soft_water.i64", input);
    std::ofstream(output) << "TORMEL Next output\n";
    const std::string executable = user.folder.File("my programs/tormel");

    ASSERT_EQ(RegisterFileAssociations(TORMEL_PROGRAM_DIR, executable, user.homes), std::nullopt);
    EXPECT_EQ(Output("xdg-mime query filetype '" + input + "'"), kInputMimeType);
    EXPECT_EQ(Output("xdg-mime query filetype '" + output + "'"), kOutputMimeType);
    EXPECT_EQ(Output(std::string("xdg-mime query default ") + kInputMimeType), kDesktopEntryName);
    EXPECT_EQ(Output(std::string("xdg-mime query default ") + kOutputMimeType), kDesktopEntryName);
    // the entry starts this program, its path quoted for the blank
    const std::string entry = ReadBytes(user.homes.data + "/applications/" + kDesktopEntryName);
    EXPECT_NE(entry.find("\nExec=\"" + executable + "\" %f\n"), std::string::npos) << entry;
    if (std::system("command -v desktop-file-validate >/dev/null 2>&1") == 0) {
        EXPECT_EQ(std::system(("desktop-file-validate '" + user.homes.data + "/applications/tormel.desktop'").c_str()),
                  0);
    }

    ASSERT_EQ(UnregisterFileAssociations(user.homes), std::nullopt);
    EXPECT_EQ(Output(std::string("xdg-mime query default ") + kInputMimeType), "");
    EXPECT_NE(Output("xdg-mime query filetype '" + input + "'"), kInputMimeType);
    EXPECT_FALSE(fs::exists(fs::path(user.homes.data) / "applications" / kDesktopEntryName));
}

TEST(FileAssociations, AMissingDeliveredFileIsNamed) {
    UserFolders user;
    const std::optional<std::string> failed = RegisterFileAssociations(user.folder.File("nowhere/"), "tormel", user.homes);
    ASSERT_TRUE(failed.has_value());
    EXPECT_NE(failed->find("nowhere/desktop/tormel.desktop"), std::string::npos) << *failed;
}

}  // namespace tormel::test
