// HostSteps.h: what vyr-host does, one function per step, in the order a front end takes them.
//
// Each step prints what it did to `out` and notes it in the log at status severity. A failure is
// thrown: TVYRException from the library, whose reasons are the error entries logged meanwhile
// (see TLogMark), or std::runtime_error for the host's own trouble. Where a step failed on a file
// or directory, it logs that path with the system's error text before the exception leaves it.
// Loaded libraries stay loaded until the process ends.
#ifndef VYR_HOST_HOSTSTEPS_H
#define VYR_HOST_HOSTSTEPS_H

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include <vyrcore/vyrcore.h>

// Makes the process logger and, when logFile is not empty, starts writing it there (a refusal
// logs the file's path and the system's reason).
void StartLogger(const std::string& logFile);

// Loads every provider library beside libvyrcore; each registers its providers itself.
void LoadProviders(std::ostream& out);

// Loads every consumer library beside libvyrcore and makes one consumer from each.
std::vector<std::unique_ptr<NORXVYR20::INamespaceConsumer>> LoadConsumers(std::ostream& out);

// Searches the sub-directories of dir (entered for the search, then left again) for collector
// plug-ins, loads each and prints the path of its specification document. A directory that
// cannot be listed is logged with the system's reason.
void LoadPlugins(const std::string& dir, std::ostream& out);

// Prints the registered providers in the registry's order and returns their names.
std::vector<std::string> ListProviders(std::ostream& out);

// Remembers how long the log was when made; ErrorsSince gives the messages of the error-severity
// entries kept after that, oldest first (none without a logger).
class TLogMark {
 public:
  TLogMark();
  std::vector<std::string> ErrorsSince() const;

 private:
  std::size_t fKept = 0;
};

#endif
