/// @file
/// OSSpecific.h: TOSSpecific, the platform services of libvyrcore.
///
/// A class of static operations only, no state. Each is a thin wrapper over the POSIX calls named
/// in its comment; failures throw TVYRException with the status named there. The file and
/// directory services log nothing; the plug-in section below has its own contract paragraph.
/// String arguments are taken by value. GetLocalTime uses the non-reentrant localtime: one thread
/// at a time.
#ifndef VYRCORE_OSSPECIFIC_H
#define VYRCORE_OSSPECIFIC_H

#include <cstddef>
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

/// Suffix of namespace-provider libraries, ".nsp.so".
VYR_EXPORT extern const std::string kNSPExtension;

/// The platform services, as static operations grouped by concern (see the file's contract and each
/// group's).
class VYR_EXPORT TOSSpecific {
 public:
  TOSSpecific() = delete;

  /// @name Files and directories
  /// Thin wrappers over stat, mkdir, the directory listing and copying; they log nothing.
  //@{
  /// Size of a file (not a directory), links followed; kVYRStatusFileNotFound otherwise.
  static std::int64_t GetFileSize(std::string path);
  /// One mkdir with mode 0777 (the umask applies), no parents. EEXIST:
  /// kVYRStatusDirectoryAlreadyExists; EACCES and EROFS: kVYRStatusAccessDenied; anything else:
  /// kVYRStatusFileSystemError. Returns 0.
  static int CreateDir(std::string path);
  /// stat succeeds and the path is (is not) a directory: devices, pipes and sockets are files;
  /// links are followed; never throws.
  static bool DirExists(std::string path);
  /// As DirExists, for a path that is not a directory.
  static bool FileExists(std::string path);
  /// Entry names in listing order (unsorted), without "." and ".."; an unreadable directory throws
  /// kVYRStatusFileSystemError.
  static std::vector<std::string> ListDir(std::string directory);
  /// Copies one file through a 32768-byte buffer into a destination created with O_EXCL and the
  /// source's permission bits; an existing destination, a failed open, read or write throw
  /// kVYRStatusFileSystemError, leaving any destination created behind. Kept on purpose: when the
  /// source cannot be queried with stat, standard input (descriptor 0) is copied onto itself and
  /// closed, so with standard input at end of file the call returns normally and writes nothing.
  /// Host programs must therefore keep standard input open, on /dev/null when they have no input:
  /// a copy from a missing source reads whatever descriptor 0 is and then closes it, and once 0 is
  /// closed the next file the process opens takes that number, so a later such copy reads from
  /// that file and closes it under its owner.
  static void FileCopy(std::string source, std::string destination);
  /// Copies a directory's files (and, with recurse, its sub-directories' files) into existing
  /// directories; creates none and undoes nothing. Entries whose stat fails are skipped; an
  /// unreadable source or any FileCopy failure throws kVYRStatusFileSystemError. Returns the result
  /// of closing the source listing.
  static int DirCopy(std::string source, std::string destination, bool recurse);
  /// base + "/" + path for a relative path and a non-empty base (no doubled "/"); the path
  /// unchanged otherwise.
  static std::string RelocateRelativePath(std::string base, std::string path);
  /// Required as it stands: asks pathconf(".", 4096) for a buffer size and returns the buffer only
  /// when getcwd fails. On Linux pathconf refuses that selector, so this throws kVYRStatusFail.
  static std::string GetCurrentDir();
  /// The host name (gethostname into 64 characters); kVYRStatusFail when it does not fit.
  static std::string GetMachineName();
  /// The host name, as GetMachineName, not a system name.
  static std::string GetOperatingSystemName();
  /// Now, in local time, with the zone's offset from UTC in minutes at this instant.
  static TCIMDateTime GetLocalTime();
  /// The logger's sink for lines when no log file is set; discards them on this platform.
  static void OutputLogString(std::string line);
  //@}

  /// @name Whole files and descriptors
  /// Everything a descriptor or a file holds, read at once.
  //@{
  /// Everything readable from descriptor until end of file, read 4096 bytes at a time and logged at
  /// debug severity. The descriptor stays open and is not rewound. A failed read logs "ERROR:
  /// GetFileContents failed to read file" and throws kVYRStatusFileSystemError; what was read is
  /// lost.
  static std::string GetFileContents(int descriptor);
  /// The whole contents of the file at path. An open that fails logs "ERROR: CaptureFile failed to
  /// open: <path>" and throws kVYRStatusFileNotFound; a read that fails (a directory, say) throws
  /// as GetFileContents does. The descriptor it opens is closed before it returns.
  static std::string CaptureFile(std::string path);
  //@}

  /// @name Child processes and console
  /// Programs run to their end, the console keys, sleeping, and the operator's editor and shell.
  //@{
  /// SpawnProcess runs program (looked up along PATH, no shell: no quoting, globbing or
  /// redirection) with arguments, its standard output and standard error joined in one pipe in the
  /// order it wrote them and its standard input closed. The whole output is read before the child
  /// is waited for, so a child that leaves its output open to a daemon makes the call wait. A
  /// program that cannot be run is not an error: status 1 and empty output. Failing pipe, fork,
  /// close or waitpid, and a child ended by a signal, log "ERROR: SpawnProcess - <what> ..." and
  /// throw kVYRStatusFail; a failed read throws as GetFileContents does. The three-argument form
  /// returns the exit status (0 to 255) and stores the output; the others return the output.
  static std::string SpawnProcess(std::string program);
  /// As above, with arguments; returns the output.
  static std::string SpawnProcess(std::string program, std::vector<std::string> arguments);
  /// As above; returns the exit status and stores the output.
  static int SpawnProcess(std::string program, std::vector<std::string> arguments,
                          std::string& output);
  /// The console keys, from standard input with every local-mode flag cleared for the length of
  /// the call (no line editing, no echo, no signal keys) and the settings put back exactly. They
  /// change process-wide terminal state: never call them at the same time. IsKeyWaiting does not
  /// wait; a poll that fails (standard input closed, say) answers true on purpose, and standard
  /// input at end of file is readable, so also true. GetKeyboardChar blocks for one key and
  /// returns it, or EOF.
  static bool IsKeyWaiting();
  /// Blocks for one key and returns it, or EOF (see IsKeyWaiting for the terminal settings).
  static int GetKeyboardChar();
  /// Sleeps for milliseconds (not microseconds, whatever the name says); usleep's result.
  static int USleep(unsigned int milliseconds);
  /// True exactly when the real user ID is 0; the effective user ID is not consulted.
  static bool IsAdmin();
  /// Runs "vi " + path through the shell and waits. The path is NOT quoted, by design: it reaches
  /// the shell as written, so callers pass trusted paths only (a space splits it, a ";" starts a
  /// second command).
  static void LaunchTextEditor(std::string path);
  /// Runs "sh" through the shell, for the operator, and returns system()'s result.
  static int LaunchCommandShell();
  //@}

  /// @name FTP transfer
  /// Anonymous FTP through libcurl, which is not linked: "libcurl.so" is opened at every transfer
  /// (lazy binding) and closed again, so a machine without it fails only here. Everything a
  /// transfer acquires (library, global state, handle, file stream) is released on every path.
  /// libcurl's global state is set up and torn down around each transfer: one transfer at a time,
  /// callers serialise. Failures log "TOSSpecific|FTPFile: ..." at error severity; unreachable
  /// servers (name not resolved, connection refused) throw kVYRStatusConnectionFailed, everything
  /// else kVYRStatusLibCurlFailure.
  //@{

  /// The two server roots, ftp URLs ending in "/", are deployment settings. Until a deployment sets
  /// them they name hosts under the reserved ".invalid" domain (or the build's VYR_FTP_*_BASE
  /// cache values), so nothing is sent anywhere by accident.
  static void SetFTPDownloadBase(std::string base);
  /// Sets the upload server's root, as SetFTPDownloadBase sets the download server's.
  static void SetFTPUploadBase(std::string base);
  /// Fetches download base + remotePath into localFile, which is created (truncated) only when the
  /// first data arrive: an empty or missing remote file leaves no local file, and a transfer that
  /// fails part way leaves what was written. True on success.
  static bool FTPFileFromORX(std::string localFile, std::string remotePath);
  /// Sends localFile to upload base + "nimbar/toorx/nimline/zul_upload/" + remoteName + ".xml.gz";
  /// callers pass the name without the suffix. An unreadable local file throws
  /// kVYRStatusLibCurlFailure. True on success.
  static bool FTPFile(std::string localFile, std::string remoteName);
  //@}

  /// @name Plug-in and provider discovery and loading
  /// Three families of modules, each found by its file name. Collector plug-ins lie one level of
  /// sub-directories below a caller-given root and carry "." + extension word + ".so" anywhere in
  /// their names. Namespace providers lib<name>.nsp.so and consumers lib<name>.nsc.so lie beside
  /// libvyrcore itself. Loads use RTLD_NOW | RTLD_GLOBAL, and nothing loaded is ever unloaded.
  /// Failures throw TVYRException; a failed load is logged first at error severity (when a core
  /// logger exists) with the loader's text. Safe from several threads, except FindPlugins, which
  /// depends on the process's current directory.
  //@{

  /// File-name constants, built at library load in this order (kPluginExtension from the two
  /// before it): ".so", "pi", ".pi.so", ".properties.xml", "/".
  static const std::string kDynamicModuleExtension;
  static const std::string kVYRPluginExtension;  ///< "pi"
  static const std::string kPluginExtension;  ///< ".pi.so"
  static const std::string kSpecificationExtension;  ///< ".properties.xml"
  static const std::string kFileSeparator;  ///< "/"

  /// The directory of the libvyrcore file this process loaded, without a trailing "/".
  /// kVYRStatusFileSystemError when the loader cannot say.
  static std::string GetVYRRootPath();
  /// Stores argc and argv unchanged: this platform's shell has expanded them already.
  static void ExpandCommandLineWildcards(int argc, char** argv, int* expandedArgc,
                                         char*** expandedArgv);
  /// Paths `root/<sub-directory>/<entry>`, in listing order, of every entry whose name contains
  /// "." + extension + ".so". A sub-directory is searched only when its bare name, resolved from
  /// the current directory, is a directory: run it with root as the current directory. An
  /// unopenable root or sub-directory: kVYRStatusFileSystemError, and nothing is returned.
  static std::vector<std::string> FindPlugins(std::string root);  ///< extension "pi"
  /// As above, with the extension word given.
  static std::vector<std::string> FindPlugins(std::string root, std::string extension);
  /// The loader's handle of the plug-in, owned by the caller. Logs "ERROR: Failed to load plugin.
  /// Reason: <loader text>" and throws kVYRStatusFileSystemError on failure.
  static void* LoadPluginLibrary(std::string path);
  /// Names of the non-directory entries beside libvyrcore whose names contain "." + kind: each
  /// name without its first three and last seven characters (libxml.nsc.so gives xml), in
  /// listing order. kVYRStatusFileSystemError when the directory cannot be listed.
  static std::vector<std::string> FindNSServices(std::string kind);
  static std::vector<std::string> FindNSPs();  ///< FindNSServices("nsp")
  static std::vector<std::string> FindNSCs();  ///< FindNSServices("nsc")
  /// Loads lib<name>.nsp.so from beside libvyrcore and calls nothing in it: the provider
  /// registers itself from its load-time initialisation. Logs "Couldn't load NSP: <name> (<loader
  /// text>)" and throws kVYRStatusFileSystemError on failure.
  static void LoadNSPLibrary(std::string name);
  /// Loads `lib<name>.nsc.so` and returns a new consumer from its extern "C" factory
  /// `<name>_CreateINamespaceConsumer`; the caller owns it. Logs "Couldn't load NSC: <name>
  /// (<loader text>)" and throws kVYRStatusFileSystemError when the load fails; logs "Couldn't
  /// find 'CreateINamespaceConsumer' in <path>" and throws kVYRStatusNotFound (the library stays
  /// loaded) when the factory is missing.
  static INamespaceConsumer* LoadNSCLibrary(std::string name);
  /// The plug-in path up to the first "." + extension + ".so", with the first "lib" anywhere in the
  /// path cut out (not for extension "cmpi"), plus ".properties.xml". Note that the first "lib"
  /// may lie in a directory name: keep "lib" out of plug-in directory paths. kVYRStatusFail when
  /// the pattern or the "lib" is missing.
  static std::string BuildSpecificationPath(std::string path, std::string extension);
  static std::string BuildSpecificationPath(std::string path);  ///< extension "pi"
  //@}

  /// @name Removable media
  /// USB drives found among the "ORXSG_SCSIDevice" instances a provider gathered, plus the
  /// built-in diskette drive; mounting through the system's mount and umount commands, run by the
  /// shell (system). Device names and mount points go into those commands unquoted: callers pass
  /// trusted device names only (nodes this library listed, or fixed names), never user text.
  /// Diskette nodes ("/dev/floppy", "/dev/fd0", "/dev/fd1") mount on "/mnt/floppy", every other
  /// device on "/mnt/key"; "/mnt/key" must exist. These change the machine's mount table: one
  /// thread at a time.
  //@{

  /// (device node, text for the user) per drive, in discovery order. A SCSI device is listed when
  /// its "DeviceType" is exactly "Direct Access Device" and its "ProductID", cut at the first
  /// space, tab, newline or carriage return, occurs anywhere in "/proc/bus/usb/devices" (a plain
  /// substring search); its text is "VendorID" (cut the same way) + " - " + that product. A
  /// /dev/sg node is replaced by its disk node (MapSG2SD); one that cannot be mapped is left out.
  /// Then "/mnt/floppy" is created if missing and the diskette nodes are mounted in turn until one
  /// mounts: that one is listed as "Built-in Floppy Drive" and stays mounted. USB drives are not
  /// mounted. A missing USB device list throws kVYRStatusFileNotFound; the namespace's own
  /// failures (no such class, a missing property) pass through.
  static std::vector<std::pair<std::string, std::string>> EnumerateRemovableMedia(
      boost::shared_ptr<ICIMNamespace> scsiDevices);
  /// The mount point in use for device: when `mount` already lists the device's mount point
  /// (whatever is mounted there), that point, without mounting. Otherwise "mount <device>
  /// <point>", then "mount <device>1 <point>" (a key with a partition table), the file system
  /// type left to mount. kVYRStatusFileSystemError when neither mounts; nothing is logged and
  /// mount's complaints are discarded.
  static std::string MountDevice(std::string device);
  /// "umount <mountPoint>"; kVYRStatusFileSystemError when it fails. device is not used.
  static void UnmountDevice(std::string device, std::string mountPoint);
  //@}
};

/// The write callback of FTPFileFromORX, for libcurl: sink is the transfer's private download
/// state. Creates the local file on the first call; returns count, or 4294967295 (taken by libcurl
/// as a write error) when the file cannot be created.
VYR_EXPORT std::size_t curl_fwrite(void* data, std::size_t size, std::size_t count, void* sink);

// --- Removable media: SCSI node mapping ----------------------------------------------------------
/// The SCSI disk node (/dev/sda to /dev/sddx) that addresses the same device as the SCSI generic
/// node (such as /dev/sg2): the first disk whose bus number, target, LUN and channel equal the
/// generic node's host, target, LUN and channel. Throws kVYRStatusFileSystemError after logging
/// "Failed opening<node>" (no space), "Failed ioctl on <node>" or "No mapping found for <node>".
/// Closes every descriptor it opens.
VYR_EXPORT std::string MapSG2SD(std::string genericNode);

}  // namespace NORXVYR20

#endif
