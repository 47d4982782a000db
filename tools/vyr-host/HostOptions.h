// HostOptions.h: the command line of vyr-host.
//
// vyr-host [--root DIR | --load FILE] [--media] [--log FILE] [--plugins DIR] [--save FILE]
// [--upload NAME [--upload-base URL]] [--help]. Parsing is pure: it reads the arguments and
// reports a mistake as text, printing nothing itself.
#ifndef VYR_HOST_HOSTOPTIONS_H
#define VYR_HOST_HOSTOPTIONS_H

#include <ostream>
#include <string>

struct THostOptions {
  bool fHelp = false;
  bool fMedia = false;     // also list the removable media
  std::string fLogFile;    // empty: the log stays in memory
  std::string fPluginDir;  // empty: no collector plug-ins are searched for
  std::string fRootDir;    // empty: the machine itself ("/") is read
  std::string fLoadFile;   // a saved collection to report on instead of the machine
  std::string fSaveFile;   // where to save the snapshot (compressed when it ends in ".gz")
  std::string fUploadName;  // the name to upload the snapshot as, without ".xml.gz"
  std::string fUploadBase;  // the upload server's root URL; empty: the library's setting
};

// Fills options from argv[1..argc-1]; on a mistake returns false with a one-line reason in *error.
bool ParseHostOptions(int argc, char** argv, THostOptions* options, std::string* error);

void PrintUsage(std::ostream& out);

#endif
