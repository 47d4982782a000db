#include "SourceFile.h"

#include <dirent.h>
#include <fcntl.h>
#include <unistd.h>
#include <vyrcore/RootObject.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

namespace vyrlinux {

namespace {

std::string Why(const std::string& what, const std::string& path, int error) {
  return "cannot " + what + " " + path + ": " + std::strerror(error);
}

// Closes on every way out; close is not retried (the descriptor is gone after EINTR).
struct TFd {
  int fFd;
  ~TFd() {
    if (fFd >= 0) ::close(fFd);
  }
};

struct TDir {
  DIR* fDir;
  ~TDir() {
    if (fDir) ::closedir(fDir);
  }
};

}  // namespace

TSourceRoot::TSourceRoot(const std::string& root) : fPrefix(TrimEnd(root, "/")) {}

std::string TSourceRoot::PathOf(const std::string& absolutePath) const {
  return fPrefix + absolutePath;
}

void NoteDebug(const std::string& message) {
  if (NORXVYR20::ILogger* logger = NORXVYR20::TRootObject::GetCoreLogger())
    logger->OutputLogEntry(NORXVYR20::ILogger::kLogSeverityDebug, "linux provider: " + message);
}

std::optional<std::string> ReadSourceFile(const std::string& path, int* error) {
  if (error) *error = 0;
  const TFd file{::open(path.c_str(), O_RDONLY | O_CLOEXEC)};
  if (file.fFd < 0) {
    if (error) *error = errno;
    NoteDebug(Why("open", path, errno));
    return std::nullopt;
  }
  std::string text;
  char buffer[4096];
  for (;;) {
    const ssize_t count = ::read(file.fFd, buffer, sizeof buffer);
    if (count == 0) return text;
    if (count > 0) {
      text.append(buffer, static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      if (error) *error = errno;
      NoteDebug(Why("read", path, errno));
      return std::nullopt;
    }
  }
}

std::optional<std::vector<std::string>> ListSourceDir(const std::string& path) {
  const TDir dir{::opendir(path.c_str())};
  if (!dir.fDir) {
    NoteDebug(Why("list", path, errno));
    return std::nullopt;
  }
  std::vector<std::string> names;
  while (const dirent* entry = ::readdir(dir.fDir)) {
    const std::string name = entry->d_name;
    if (name != "." && name != "..") names.push_back(name);
  }
  std::sort(names.begin(), names.end());
  return names;
}

std::string TrimEnd(std::string text, const std::string& characters) {
  text.erase(text.find_last_not_of(characters) + 1);
  return text;
}

}  // namespace vyrlinux
