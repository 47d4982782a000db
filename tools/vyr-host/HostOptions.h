// HostOptions.h: the command line of vyr-host.
//
// vyr-host [--root DIR] [--media] [--log FILE] [--plugins DIR] [--help]. Parsing is pure: it
// reads the arguments and reports a mistake as text, printing nothing itself.
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
};

// Fills options from argv[1..argc-1]; on a mistake returns false with a one-line reason in *error.
bool ParseHostOptions(int argc, char** argv, THostOptions* options, std::string* error);

void PrintUsage(std::ostream& out);

#endif
