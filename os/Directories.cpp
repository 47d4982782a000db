// Directories.cpp: TOSSpecific's directory creation and listing.
//
// CreateDir is a single mkdir (no parents); its errno decides the status thrown. ListDir returns
// entry names in the order the file system delivers them, never sorted.
#include <vyrcore/OSSpecific.h>

#include <sys/stat.h>

#include <cerrno>

#include "core/Fail.h"
#include "os/UniqueFd.h"

namespace NORXVYR20 {

namespace {

// The status for a failed mkdir. A read-only file system is reported like a permission refusal:
// either way the caller may not create anything there.
TVYRStatusCode CreateDirStatus(int error) {
  switch (error) {
    case EEXIST:
      return kVYRStatusDirectoryAlreadyExists;
    case EACCES:
    case EROFS:
      return kVYRStatusAccessDenied;
    default:
      return kVYRStatusFileSystemError;
  }
}

}  // namespace

int TOSSpecific::CreateDir(std::string path) {
  if (::mkdir(path.c_str(), 0777) != 0) detail::Fail(CreateDirStatus(errno));
  return 0;
}

std::vector<std::string> TOSSpecific::ListDir(std::string directory) {
  detail::UniqueDir listing(directory);
  std::vector<std::string> names;
  while (const dirent* entry = listing.NextEntry()) names.emplace_back(entry->d_name);
  // `listing` closes the handle on return. Earlier versions left it open; no caller relies on that.
  return names;
}

}  // namespace NORXVYR20
