// OSSpecific.h: TOSSpecific, the platform services of libvyrcore.
//
// A class of static operations only, no state. Each is a thin wrapper over the POSIX calls named
// in its comment; failures throw TVYRException with the status named there, and nothing here logs.
// String arguments are taken by value. GetLocalTime uses the non-reentrant localtime: one thread
// at a time.
#ifndef VYRCORE_OSSPECIFIC_H
#define VYRCORE_OSSPECIFIC_H

#include <cstdint>
#include <string>
#include <vector>

#include <vyrcore/CIMDateTime.h>
#include <vyrcore/export.h>

namespace NORXVYR20 {

class VYR_EXPORT TOSSpecific {
 public:
  TOSSpecific() = delete;

  // --- Files and directories -------------------------------------------------------------------
  // Size of a file (not a directory); kVYRStatusFileNotFound otherwise.
  static std::int64_t GetFileSize(std::string path);
  // One mkdir with mode 0777, no parents. EEXIST: kVYRStatusDirectoryAlreadyExists; EACCES and
  // EROFS: kVYRStatusAccessDenied; anything else: kVYRStatusFileSystemError. Returns 0.
  static int CreateDir(std::string path);
  // stat succeeds and the path is (is not) a directory; links are followed; never throws.
  static bool DirExists(std::string path);
  static bool FileExists(std::string path);
  // Entry names in listing order, without "." and ".."; kVYRStatusFileSystemError.
  static std::vector<std::string> ListDir(std::string directory);
  // Copies one file; the destination must not exist. kVYRStatusFileSystemError.
  static void FileCopy(std::string source, std::string destination);
  // Copies a directory's files (and, with recurse, its sub-directories' files) into existing
  // directories; creates none. Returns the result of closing the source listing.
  static int DirCopy(std::string source, std::string destination, bool recurse);
  // base + "/" + path for a relative path and a non-empty base; the path unchanged otherwise.
  static std::string RelocateRelativePath(std::string base, std::string path);
  static std::string GetCurrentDir();
  static std::string GetMachineName();
  // The host name, as GetMachineName.
  static std::string GetOperatingSystemName();
  // Now, in local time, with the zone's offset from UTC in minutes at this instant.
  static TCIMDateTime GetLocalTime();
  // The logger's sink for lines when no log file is set; discards them on this platform.
  static void OutputLogString(std::string line);
};

}  // namespace NORXVYR20

#endif
