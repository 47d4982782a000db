// FileContents.cpp: TOSSpecific's reading of a whole descriptor or file into a string.
//
// GetFileContents reads in 4096-byte steps until end of file and leaves the descriptor as it found
// it (open, not rewound): its callers own it. CaptureFile opens the path itself and, unlike the
// historical behaviour that left one descriptor open per call, closes it again: a collector that
// captures thousands of small kernel files must not run out of descriptors.
#include <vyrcore/OSSpecific.h>

#include <fcntl.h>
#include <unistd.h>

#include "core/Fail.h"
#include "os/Eintr.h"
#include "os/UniqueFd.h"

namespace NORXVYR20 {

std::string TOSSpecific::GetFileContents(int descriptor) {
  std::string contents;
  char buffer[4096];
  ssize_t count;
  while ((count = detail::RetryOnEintr([&] { return ::read(descriptor, buffer, sizeof buffer); })) >
         0)
    contents.append(buffer, static_cast<std::size_t>(count));
  if (count < 0)
    detail::FailWithLog(kVYRStatusFileSystemError, "ERROR: GetFileContents failed to read file");
  detail::LogDebug("Debug (linux toss): GetFileContents() Returned: " + contents);
  return contents;
}

std::string TOSSpecific::CaptureFile(std::string path) {
  detail::UniqueFd file;
  file.Reset(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (!file.IsValid())
    detail::FailWithLog(kVYRStatusFileNotFound, "ERROR: CaptureFile failed to open: " + path);
  return GetFileContents(file.Get());
}

}  // namespace NORXVYR20
