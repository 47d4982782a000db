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
    } else {
      *error = "unknown argument " + arg;
      return false;
    }
  }
  return true;
}

void PrintUsage(std::ostream& out) {
  out << "Usage: vyr-host [--root DIR] [--media] [--log FILE] [--plugins DIR] [--help]\n"
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
         "  --help         print this text\n"
         "\n"
         "Exit status: 0 on success, 1 when something fails to load, 2 for a usage error.\n";
}
