// SourceFile.h: how the linux provider reads the files the kernel and the distribution expose.
//
// Every source of the provider may be missing or unreadable, and none of that is an error: a read
// answers the text or nothing, and when nothing, a debug line in the core log says which file and
// why (the errno text). Paths are built below a root directory ("/" on a live machine, a fixture
// tree in tests), so no function here looks outside it except through links the tree holds.
// Nothing throws TVYRException; one thread at a time, as the core logger.
#ifndef VYRCORE_PLUGINS_LINUX_SOURCEFILE_H
#define VYRCORE_PLUGINS_LINUX_SOURCEFILE_H

#include <optional>
#include <string>
#include <vector>

namespace vyrlinux {

// A root directory and the paths below it. A root of "/" (or "") gives "/etc/os-release"; any
// other root is prefixed as given, without doubled separators.
class TSourceRoot {
 public:
  explicit TSourceRoot(const std::string& root);
  std::string PathOf(const std::string& absolutePath) const;

 private:
  std::string fPrefix;  // the root without trailing "/"; empty for "/"
};

// Writes "linux provider: " + message to the core logger at debug severity, when a logger exists.
void NoteDebug(const std::string& message);

// The whole file, or nothing (noted in the log) when it cannot be opened or read; *error, when
// given, receives the errno of the failure (0 on success).
std::optional<std::string> ReadSourceFile(const std::string& path, int* error = nullptr);

// Entry names of a directory without "." and "..", sorted; nothing (noted) when it cannot be
// listed.
std::optional<std::vector<std::string>> ListSourceDir(const std::string& path);

// The text without the trailing characters in `characters`.
std::string TrimEnd(std::string text, const std::string& characters = " \t\r\n");

}  // namespace vyrlinux

#endif
