// FileCopy.cpp: TOSSpecific's copying of one file and of a directory's files.
//
// FileCopy streams through a 32768-byte buffer into a destination it creates exclusively with the
// source's permission bits (the process's umask applies); it never overwrites, and on failure it
// leaves behind whatever it created. DirCopy copies entry by entry in listing order into
// directories that must already exist: it creates no directory and undoes nothing on failure.
#include <vyrcore/OSSpecific.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "core/Fail.h"
#include "os/Eintr.h"
#include "os/UniqueFd.h"

namespace NORXVYR20 {

namespace {

constexpr std::size_t kCopyBufferSize = 32768;

// Copies until a read returns 0 or less or a write returns 0 or less; a short write is not
// completed. Returns the result of the last read or write: 0 means the copy ended cleanly.
ssize_t CopyThroughBuffer(int from, int to) {
  char buffer[kCopyBufferSize];
  ssize_t result;
  do {
    result = detail::RetryOnEintr([&] { return ::read(from, buffer, sizeof buffer); });
    if (result <= 0) break;
    const std::size_t count = static_cast<std::size_t>(result);
    result = detail::RetryOnEintr([&] { return ::write(to, buffer, count); });
  } while (result > 0);
  return result;
}

void AppendSlash(std::string& path) {
  if (path.empty() || path.back() != '/') path += '/';
}

// FileCopy of a source already queried: info is its stat, or null when stat failed. DirCopy has
// the stat of every entry in hand and passes it on rather than asking again.
void CopyFile(const std::string& source, const struct stat* info, const std::string& destination) {
  detail::UniqueFd from;
  detail::UniqueFd to;
  if (info != nullptr) {
    from.Reset(::open(source.c_str(), O_RDONLY));
    if (!from.IsValid()) detail::Fail(kVYRStatusFileSystemError);
    to.Reset(::open(destination.c_str(), O_WRONLY | O_CREAT | O_EXCL, info->st_mode & 07777));
    if (!to.IsValid()) detail::Fail(kVYRStatusFileSystemError);
  } else {
    // Kept on purpose: a source that cannot be queried copies standard input onto itself, so with
    // standard input at end of file the call returns normally and writes nothing. Both ends are
    // descriptor 0, which is closed (once) when the copy ends, as it always has been.
    from.Reset(STDIN_FILENO);
  }
  // Both owners close their descriptors on the way out, whether the copy failed or not.
  const ssize_t last = CopyThroughBuffer(from.Get(), to.IsValid() ? to.Get() : from.Get());
  if (last != 0) detail::Fail(kVYRStatusFileSystemError);
}

}  // namespace

void TOSSpecific::FileCopy(std::string source, std::string destination) {
  struct stat info;
  CopyFile(source, ::stat(source.c_str(), &info) == 0 ? &info : nullptr, destination);
}

int TOSSpecific::DirCopy(std::string source, std::string destination, bool recurse) {
  AppendSlash(source);
  AppendSlash(destination);
  detail::UniqueDir listing(source);
  while (const dirent* entry = listing.NextEntry()) {
    const std::string from = source + entry->d_name;
    const std::string to = destination + entry->d_name;
    struct stat info;
    if (::stat(from.c_str(), &info) != 0) continue;  // vanished or a dangling link: skipped
    if (!S_ISDIR(info.st_mode))
      CopyFile(from, &info, to);
    else if (recurse)
      DirCopy(from, to, recurse);
  }
  return listing.Close();
}

}  // namespace NORXVYR20
