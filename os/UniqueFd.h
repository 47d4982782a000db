// UniqueFd.h: owners for the platform layer's descriptors and directory listings (never installed).
//
// UniqueFd owns one file descriptor and UniqueDir one DIR* listing; each closes what it holds when
// it goes out of scope, so a throw in the middle of a copy or a listing leaks nothing. UniqueDir
// opens its listing itself, and a directory opendir refuses throws kVYRStatusFileSystemError
// (nothing logged): every listing of the platform layer fails so. Neither copies nor moves. Close
// errors are ignored on destruction; UniqueDir::Close reports closedir's result for callers whose
// contract returns it. One thread at a time per owner.
#ifndef VYRCORE_OS_UNIQUEFD_H
#define VYRCORE_OS_UNIQUEFD_H

#include <dirent.h>
#include <unistd.h>

#include <cstring>
#include <string>
#include <utility>

#include "core/Fail.h"

namespace NORXVYR20 {
namespace detail {

class UniqueFd {
 public:
  UniqueFd() = default;
  ~UniqueFd() { Reset(); }
  UniqueFd(const UniqueFd&) = delete;
  UniqueFd& operator=(const UniqueFd&) = delete;

  int Get() const { return fFd; }
  bool IsValid() const { return fFd >= 0; }
  // Closes the descriptor held (never retried: after EINTR the descriptor is already gone) and
  // takes fd instead.
  void Reset(int fd = -1) {
    if (fFd >= 0) ::close(fFd);
    fFd = fd;
  }
  // Closes the descriptor now and returns close's result, for callers that must report it; the
  // owner is empty afterwards whatever the result.
  int Close() { return ::close(std::exchange(fFd, -1)); }
  // Gives the descriptor up to a new owner (a stdio stream, say) and returns it.
  int Release() { return std::exchange(fFd, -1); }

 private:
  int fFd = -1;
};

class UniqueDir {
 public:
  explicit UniqueDir(const std::string& directory) : fDir(::opendir(directory.c_str())) {
    if (!fDir) Fail(kVYRStatusFileSystemError);
  }
  ~UniqueDir() {
    if (fDir) ::closedir(fDir);
  }
  UniqueDir(const UniqueDir&) = delete;
  UniqueDir& operator=(const UniqueDir&) = delete;

  // The next entry in listing order, skipping "." and ".."; nullptr at the end.
  const dirent* NextEntry() {
    const dirent* entry;
    do {
      entry = ::readdir(fDir);
    } while (entry && (std::strcmp(entry->d_name, ".") == 0 ||
                       std::strcmp(entry->d_name, "..") == 0));
    return entry;
  }
  // Closes the listing now and returns closedir's result; the owner is empty afterwards.
  int Close() { return ::closedir(std::exchange(fDir, nullptr)); }

 private:
  DIR* fDir;
};

}  // namespace detail
}  // namespace NORXVYR20

#endif
