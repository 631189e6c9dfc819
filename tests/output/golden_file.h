#pragma once
// Golden-file comparison for the tests of files and texts users get.
#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>

namespace tormel::test {

// `text` equals the golden file tests/data/golden/<name>, byte for byte. With
// TORMEL_UPDATE_GOLDEN=1 the file is rewritten instead; review its diff.
inline void ExpectMatchesGolden(const std::string& text, const std::string& name) {
    const std::string path = std::string(TORMEL_TEST_DATA) + "/golden/" + name;
    if (std::getenv("TORMEL_UPDATE_GOLDEN")) std::ofstream(path, std::ios::binary) << text;
    std::ifstream in(path, std::ios::binary);
    ASSERT_TRUE(in) << "no golden file " << path;
    const std::string golden((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    EXPECT_EQ(text, golden) << "differs from " << path;
}

}  // namespace tormel::test
