// vyr-host: starts the way the collector's front end starts, and shows what it found.
//
// It makes the logger, finds libvyrcore's own directory, loads every provider and consumer that
// lies there (the "linux" and "memory" providers among them), optionally loads collector plug-ins,
// lists the registered providers, then prints the identity of the machine as the "linux" provider
// reads it (or of a saved collection), and saves or uploads what it read. See PrintUsage for the
// command line.
#include <functional>
#include <iostream>

#include "CollectionSteps.h"
#include "HostOptions.h"
#include "HostSteps.h"
#include "IdentityReport.h"

using namespace NORXVYR20;

namespace {

// Runs one step; on failure says which step failed, the status, and every error logged meanwhile:
// the status names the kind of failure, the log lines say what and why.
bool RunStep(const std::string& what, const std::function<void()>& step) {
  const TLogMark mark;
  try {
    step();
    return true;
  } catch (const TVYRException& e) {
    std::cerr << "vyr-host: cannot " << what << ": " << e.what() << "\n";
    for (const std::string& logged : mark.ErrorsSince())
      std::cerr << "vyr-host:   " << logged << "\n";
  } catch (const std::exception& e) {
    std::cerr << "vyr-host: cannot " << what << ": " << e.what() << "\n";
  }
  return false;
}

// The snapshot of the main job (the machine, or the collection loaded), its report, then its
// saving and uploading.
bool RunReport(const THostOptions& options) {
  TSnapshot snapshot;
  const TReportSubject subject{options.fRootDir, options.fLoadFile};
  const bool read =
      options.fLoadFile.empty()
          ? RunStep("read this machine's identity",
                    [&] { snapshot = SnapshotOfMachine(options.fRootDir); })
          : RunStep("load the collection " + options.fLoadFile,
                    [&] { snapshot = SnapshotOfCollection(options.fLoadFile); });
  return read &&
         RunStep(options.fLoadFile.empty() ? "read this machine's identity"
                                           : "report on the collection",
                 [&] { ShowIdentity(snapshot, subject, options.fMedia, std::cout); }) &&
         (options.fSaveFile.empty() ||
          RunStep("save the collection to " + options.fSaveFile,
                  [&] { SaveCollection(snapshot, options.fSaveFile, std::cout); })) &&
         (options.fUploadName.empty() ||
          RunStep("upload the collection as " + options.fUploadName, [&] {
            UploadCollection(snapshot, options.fUploadName, options.fUploadBase, std::cout);
          }));
}

int Run(const THostOptions& options) {
  if (!RunStep("start the log", [&] { StartLogger(options.fLogFile); })) return 1;
  std::vector<std::unique_ptr<INamespaceConsumer>> consumers;
  const bool ok =
      RunStep("find the library directory",
              [] { std::cout << "Library directory: " << TOSSpecific::GetVYRRootPath() << "\n"; }) &&
      RunStep("load the providers", [] { LoadProviders(std::cout); }) &&
      RunStep("load the consumers", [&] { consumers = LoadConsumers(std::cout); }) &&
      (options.fPluginDir.empty() ||
       RunStep("load the plug-ins of " + options.fPluginDir,
               [&] { LoadPlugins(options.fPluginDir, std::cout); })) &&
      RunStep("list the providers", [] { ListProviders(std::cout); }) &&
      RunReport(options);
  consumers.clear();
  // Destroying the logger writes the log file's closing banner.
  delete TLogger::GetInstance();
  return ok ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  int count = 0;
  char** args = nullptr;
  TOSSpecific::ExpandCommandLineWildcards(argc, argv, &count, &args);
  THostOptions options;
  std::string error;
  if (!ParseHostOptions(count, args, &options, &error)) {
    std::cerr << "vyr-host: " << error << "\n";
    PrintUsage(std::cerr);
    return 2;
  }
  if (options.fHelp) {
    PrintUsage(std::cout);
    return 0;
  }
  return Run(options);
}
