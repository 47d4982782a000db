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
  // Size of a file (not a directory), links followed; kVYRStatusFileNotFound otherwise.
  static std::int64_t GetFileSize(std::string path);
  // One mkdir with mode 0777 (the umask applies), no parents. EEXIST:
  // kVYRStatusDirectoryAlreadyExists; EACCES and EROFS: kVYRStatusAccessDenied; anything else:
  // kVYRStatusFileSystemError. Returns 0.
  static int CreateDir(std::string path);
  // stat succeeds and the path is (is not) a directory: devices, pipes and sockets are files;
  // links are followed; never throws.
  static bool DirExists(std::string path);
  static bool FileExists(std::string path);
  // Entry names in listing order (unsorted), without "." and ".."; an unreadable directory throws
  // kVYRStatusFileSystemError.
  static std::vector<std::string> ListDir(std::string directory);
  // Copies one file through a 32768-byte buffer into a destination created with O_EXCL and the
  // source's permission bits; an existing destination, a failed open, read or write throw
  // kVYRStatusFileSystemError, leaving any destination created behind. Kept on purpose: when the
  // source cannot be queried with stat, standard input (descriptor 0) is copied onto itself and
  // closed, so with standard input at end of file the call returns normally and writes nothing.
  static void FileCopy(std::string source, std::string destination);
  // Copies a directory's files (and, with recurse, its sub-directories' files) into existing
  // directories; creates none and undoes nothing. Entries whose stat fails are skipped; an
  // unreadable source or any FileCopy failure throws kVYRStatusFileSystemError. Returns the result
  // of closing the source listing.
  static int DirCopy(std::string source, std::string destination, bool recurse);
  // base + "/" + path for a relative path and a non-empty base (no doubled "/"); the path
  // unchanged otherwise.
  static std::string RelocateRelativePath(std::string base, std::string path);
  // Required as it stands: asks pathconf(".", 4096) for a buffer size and returns the buffer only
  // when getcwd fails. On Linux pathconf refuses that selector, so this throws kVYRStatusFail.
  static std::string GetCurrentDir();
  // The host name (gethostname into 64 characters); kVYRStatusFail when it does not fit.
  static std::string GetMachineName();
  // The host name, as GetMachineName, not a system name.
  static std::string GetOperatingSystemName();
  // Now, in local time, with the zone's offset from UTC in minutes at this instant.
  static TCIMDateTime GetLocalTime();
  // The logger's sink for lines when no log file is set; discards them on this platform.
  static void OutputLogString(std::string line);
};

}  // namespace NORXVYR20

#endif
