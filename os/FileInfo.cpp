// FileInfo.cpp: the status queries of TOSSpecific: existence of files and directories, and sizes.
//
// All three follow symbolic links (stat, not lstat). "File" means anything that is not a
// directory, so devices, pipes and sockets count as files.
#include <vyrcore/OSSpecific.h>

#include <sys/stat.h>

#include "core/Fail.h"

namespace NORXVYR20 {

namespace {

// Fills *info and says whether stat succeeded.
bool StatPath(const std::string& path, struct stat* info) {
  return ::stat(path.c_str(), info) == 0;
}

}  // namespace

bool TOSSpecific::DirExists(std::string path) {
  struct stat info;
  return StatPath(path, &info) && S_ISDIR(info.st_mode);
}

bool TOSSpecific::FileExists(std::string path) {
  struct stat info;
  return StatPath(path, &info) && !S_ISDIR(info.st_mode);
}

std::int64_t TOSSpecific::GetFileSize(std::string path) {
  struct stat info;
  if (!StatPath(path, &info) || S_ISDIR(info.st_mode)) detail::Fail(kVYRStatusFileNotFound);
  return info.st_size;
}

}  // namespace NORXVYR20
