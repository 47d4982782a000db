// OSSpecific.h: TOSSpecific, the platform services of libvyrcore.
//
// A class of static operations only, no state. Each is a thin wrapper over the POSIX calls named
// in its comment; failures throw TVYRException with the status named there. The file and
// directory services log nothing; the plug-in section below has its own contract paragraph.
// String arguments are taken by value. GetLocalTime uses the non-reentrant localtime: one thread
// at a time.
#ifndef VYRCORE_OSSPECIFIC_H
#define VYRCORE_OSSPECIFIC_H

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include <boost/shared_ptr.hpp>

#include <vyrcore/CIMDateTime.h>
#include <vyrcore/export.h>

namespace NORXVYR20 {

class ICIMNamespace;
class INamespaceConsumer;

// Suffix of namespace-provider libraries, ".nsp.so".
VYR_EXPORT extern const std::string kNSPExtension;

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

  // --- Whole files and descriptors ---------------------------------------------------------------
  // Everything readable from descriptor until end of file, read 4096 bytes at a time and logged at
  // debug severity. The descriptor stays open and is not rewound. A failed read logs "ERROR:
  // GetFileContents failed to read file" and throws kVYRStatusFileSystemError; what was read is
  // lost.
  static std::string GetFileContents(int descriptor);
  // The whole contents of the file at path. An open that fails logs "ERROR: CaptureFile failed to
  // open: <path>" and throws kVYRStatusFileNotFound; a read that fails (a directory, say) throws
  // as GetFileContents does. The descriptor it opens is closed before it returns.
  static std::string CaptureFile(std::string path);

  // --- Plug-in and provider discovery and loading ------------------------------------------------
  // Three families of modules, each found by its file name. Collector plug-ins lie one level of
  // sub-directories below a caller-given root and carry "." + extension word + ".so" anywhere in
  // their names. Namespace providers lib<name>.nsp.so and consumers lib<name>.nsc.so lie beside
  // libvyrcore itself. Loads use RTLD_NOW | RTLD_GLOBAL, and nothing loaded is ever unloaded.
  // Failures throw TVYRException; a failed load is logged first at error severity (when a core
  // logger exists) with the loader's text. Safe from several threads, except FindPlugins, which
  // depends on the process's current directory.

  // File-name constants, built at library load in this order (kPluginExtension from the two
  // before it): ".so", "pi", ".pi.so", ".properties.xml", "/".
  static const std::string kDynamicModuleExtension;
  static const std::string kVYRPluginExtension;
  static const std::string kPluginExtension;
  static const std::string kSpecificationExtension;
  static const std::string kFileSeparator;

  // The directory of the libvyrcore file this process loaded, without a trailing "/".
  // kVYRStatusFileSystemError when the loader cannot say.
  static std::string GetVYRRootPath();
  // Stores argc and argv unchanged: this platform's shell has expanded them already.
  static void ExpandCommandLineWildcards(int argc, char** argv, int* expandedArgc,
                                         char*** expandedArgv);
  // Paths root/<sub-directory>/<entry>, in listing order, of every entry whose name contains
  // "." + extension + ".so". A sub-directory is searched only when its bare name, resolved from
  // the current directory, is a directory: run it with root as the current directory. An
  // unopenable root or sub-directory: kVYRStatusFileSystemError, and nothing is returned.
  static std::vector<std::string> FindPlugins(std::string root);  // extension "pi"
  static std::vector<std::string> FindPlugins(std::string root, std::string extension);
  // The loader's handle of the plug-in, owned by the caller. Logs "ERROR: Failed to load plugin.
  // Reason: <loader text>" and throws kVYRStatusFileSystemError on failure.
  static void* LoadPluginLibrary(std::string path);
  // Names of the non-directory entries beside libvyrcore whose names contain "." + kind: each
  // name without its first three and last seven characters (libxml.nsc.so gives xml), in
  // listing order. kVYRStatusFileSystemError when the directory cannot be listed.
  static std::vector<std::string> FindNSServices(std::string kind);
  static std::vector<std::string> FindNSPs();  // FindNSServices("nsp")
  static std::vector<std::string> FindNSCs();  // FindNSServices("nsc")
  // Loads lib<name>.nsp.so from beside libvyrcore and calls nothing in it: the provider
  // registers itself from its load-time initialisation. Logs "Couldn't load NSP: <name> (<loader
  // text>)" and throws kVYRStatusFileSystemError on failure.
  static void LoadNSPLibrary(std::string name);
  // Loads lib<name>.nsc.so and returns a new consumer from its extern "C" factory
  // <name>_CreateINamespaceConsumer; the caller owns it. Logs "Couldn't load NSC: <name>
  // (<loader text>)" and throws kVYRStatusFileSystemError when the load fails; logs "Couldn't
  // find 'CreateINamespaceConsumer' in <path>" and throws kVYRStatusNotFound (the library stays
  // loaded) when the factory is missing.
  static INamespaceConsumer* LoadNSCLibrary(std::string name);
  // The plug-in path up to the first "." + extension + ".so", with the first "lib" anywhere in the
  // path cut out (not for extension "cmpi"), plus ".properties.xml". Note that the first "lib"
  // may lie in a directory name: keep "lib" out of plug-in directory paths. kVYRStatusFail when
  // the pattern or the "lib" is missing.
  static std::string BuildSpecificationPath(std::string path, std::string extension);
  static std::string BuildSpecificationPath(std::string path);  // extension "pi"

  // --- Removable media ---------------------------------------------------------------------------
  // USB drives found among the "ORXSG_SCSIDevice" instances a provider gathered, plus the
  // built-in diskette drive; mounting through the system's mount and umount commands, run by the
  // shell (system). Device names and mount points go into those commands unquoted: callers pass
  // trusted device names only (nodes this library listed, or fixed names), never user text.
  // Diskette nodes ("/dev/floppy", "/dev/fd0", "/dev/fd1") mount on "/mnt/floppy", every other
  // device on "/mnt/key"; "/mnt/key" must exist. These change the machine's mount table: one
  // thread at a time.

  // (device node, text for the user) per drive, in discovery order. A SCSI device is listed when
  // its "DeviceType" is exactly "Direct Access Device" and its "ProductID", cut at the first
  // space, tab, newline or carriage return, occurs anywhere in "/proc/bus/usb/devices" (a plain
  // substring search); its text is "VendorID" (cut the same way) + " - " + that product. A
  // /dev/sg node is replaced by its disk node (MapSG2SD); one that cannot be mapped is left out.
  // Then "/mnt/floppy" is created if missing and the diskette nodes are mounted in turn until one
  // mounts: that one is listed as "Built-in Floppy Drive" and stays mounted. USB drives are not
  // mounted. A missing USB device list throws kVYRStatusFileNotFound; the namespace's own
  // failures (no such class, a missing property) pass through.
  static std::vector<std::pair<std::string, std::string>> EnumerateRemovableMedia(
      boost::shared_ptr<ICIMNamespace> scsiDevices);
  // The mount point in use for device: when `mount` already lists the device's mount point
  // (whatever is mounted there), that point, without mounting. Otherwise "mount <device>
  // <point>", then "mount <device>1 <point>" (a key with a partition table), the file system
  // type left to mount. kVYRStatusFileSystemError when neither mounts; nothing is logged and
  // mount's complaints are discarded.
  static std::string MountDevice(std::string device);
  // "umount <mountPoint>"; kVYRStatusFileSystemError when it fails. device is not used.
  static void UnmountDevice(std::string device, std::string mountPoint);
};

// --- Removable media: SCSI node mapping ----------------------------------------------------------
// The SCSI disk node (/dev/sda to /dev/sddx) that addresses the same device as the SCSI generic
// node (such as /dev/sg2): the first disk whose bus number, target, LUN and channel equal the
// generic node's host, target, LUN and channel. Throws kVYRStatusFileSystemError after logging
// "Failed opening<node>" (no space), "Failed ioctl on <node>" or "No mapping found for <node>".
// Closes every descriptor it opens.
VYR_EXPORT std::string MapSG2SD(std::string genericNode);

}  // namespace NORXVYR20

#endif
