#include "HostOptions.h"

namespace {

// Stores the value that follows option `name`; false (with the reason) when there is none.
bool TakeValue(int argc, char** argv, int* index, std::string* value, std::string* error) {
  const std::string name = argv[*index];
  if (*index + 1 >= argc || std::string(argv[*index + 1]).empty()) {
    *error = "option " + name + " needs a value";
    return false;
  }
  *value = argv[++*index];
  return true;
}

// The options that only make sense together, or not at all together.
bool CheckCombination(const THostOptions& options, std::string* error) {
  if (!options.fLoadFile.empty() && (!options.fRootDir.empty() || options.fMedia)) {
    *error = "--load reports on a saved collection: it cannot go with --root or --media";
    return false;
  }
  if (options.fUploadName.find('/') != std::string::npos) {
    *error = "--upload takes a name, not a path: " + options.fUploadName;
    return false;
  }
  if (!options.fUploadBase.empty()) {
    if (options.fUploadName.empty()) {
      *error = "--upload-base needs --upload";
      return false;
    }
    if (options.fUploadBase.rfind("ftp://", 0) != 0) {
      *error = "--upload-base takes an ftp:// URL: " + options.fUploadBase;
      return false;
    }
  }
  return true;
}

}  // namespace

bool ParseHostOptions(int argc, char** argv, THostOptions* options, std::string* error) {
  for (int i = 1; i < argc; ++i) {
    const std::string arg = argv[i];
    if (arg == "--help" || arg == "-h") {
      options->fHelp = true;
    } else if (arg == "--log") {
      if (!TakeValue(argc, argv, &i, &options->fLogFile, error)) return false;
    } else if (arg == "--media") {
      options->fMedia = true;
    } else if (arg == "--root") {
      if (!TakeValue(argc, argv, &i, &options->fRootDir, error)) return false;
    } else if (arg == "--plugins") {
      if (!TakeValue(argc, argv, &i, &options->fPluginDir, error)) return false;
    } else if (arg == "--save") {
      if (!TakeValue(argc, argv, &i, &options->fSaveFile, error)) return false;
    } else if (arg == "--load") {
      if (!TakeValue(argc, argv, &i, &options->fLoadFile, error)) return false;
    } else if (arg == "--upload") {
      if (!TakeValue(argc, argv, &i, &options->fUploadName, error)) return false;
    } else if (arg == "--upload-base") {
      if (!TakeValue(argc, argv, &i, &options->fUploadBase, error)) return false;
    } else {
      *error = "unknown argument " + arg;
      return false;
    }
  }
  return CheckCombination(*options, error);
}

void PrintUsage(std::ostream& out) {
  out << "Usage: vyr-host [--root DIR | --load FILE] [--media] [--log FILE] [--plugins DIR]\n"
         "                [--save FILE] [--upload NAME [--upload-base URL]] [--help]\n"
         "\n"
         "Loads every namespace provider (lib<name>.nsp.so) and consumer (lib<name>.nsc.so)\n"
         "that lies beside libvyrcore, lists the registered providers, then reads this machine\n"
         "through the \"linux\" provider (liblinux.nsp.so), copies what it read into an in-memory\n"
         "snapshot and prints from it who the machine is: host name, product, machine type and\n"
         "model, serial number, operating system, data-source version and SCSI devices.\n"
         "\n"
         "  --root DIR     read a fixture tree laid out as sysfs and /etc below DIR instead of \"/\"\n"
         "  --media        also list the removable media: USB drives among the SCSI devices, and\n"
         "                 the diskette drive, which it probes by mounting it on /mnt/floppy (a\n"
         "                 diskette found stays mounted)\n"
         "  --log FILE     also write the log to FILE\n"
         "  --plugins DIR  load the collector plug-ins found in the sub-directories of DIR and\n"
         "                 print the path of each one's specification document\n"
         "  --save FILE    save the snapshot to FILE as a CIM-XML collection, gzip-compressed\n"
         "                 when FILE ends in \".gz\"\n"
         "  --load FILE    report on a saved collection (plain or compressed) instead of this\n"
         "                 machine\n"
         "  --upload NAME  upload the snapshot by FTP, compressed, as\n"
         "                 nimbar/toorx/nimline/zul_upload/NAME.xml.gz on the upload server\n"
         "  --upload-base URL\n"
         "                 the upload server's root, an ftp:// URL (default: the build's setting)\n"
         "  --help         print this text\n"
         "\n"
         "Exit status: 0 on success, 1 when something fails to load, save or upload, 2 for a\n"
         "usage error.\n";
}
