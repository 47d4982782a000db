// Tests of os/Paths.cpp: RelocateRelativePath over base and path spellings.
#include <vyrcore/OSSpecific.h>

#include "support/TestSupport.h"

using NORXVYR20::TOSSpecific;

namespace {

TEST(PathsTest, RelocateRelativePath) {
  const struct {
    const char* base;
    const char* path;
    const char* expected;
  } cases[] = {
      {"/a", "b", "/a/b"}, {"/a/", "b", "/a/b"}, {"/a", "/b", "/b"},     {"", "b", "b"},
      {"", "", ""},        {"/a", "", "/a/"},    {"a", "./b", "a/./b"}, {"/a//", "b", "/a//b"},
  };
  for (const auto& c : cases)
    EXPECT_EQ(TOSSpecific::RelocateRelativePath(c.base, c.path), c.expected)
        << "base \"" << c.base << "\" path \"" << c.path << "\"";
}

}  // namespace
