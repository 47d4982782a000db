// HostSteps.h: what vyr-host does, one function per step, in the order a front end takes them.
//
// Each step prints what it did to `out` and notes it in the log at status severity. A failure is
// thrown: TVYRException from the library (whose message, when it has one, is the newest error in
// the log: LastLoggedError) or std::runtime_error for the host's own trouble. Loaded libraries
// stay loaded until the process ends.
#ifndef VYR_HOST_HOSTSTEPS_H
#define VYR_HOST_HOSTSTEPS_H

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include <vyrcore/vyrcore.h>

// Makes the process logger and, when logFile is not empty, starts writing it there.
void StartLogger(const std::string& logFile);

// Loads every provider library beside libvyrcore; each registers its providers itself.
void LoadProviders(std::ostream& out);

// Loads every consumer library beside libvyrcore and makes one consumer from each.
std::vector<std::unique_ptr<NORXVYR20::INamespaceConsumer>> LoadConsumers(std::ostream& out);

// Searches the sub-directories of dir (entered for the search, then left again) for collector
// plug-ins, loads each and prints the path of its specification document.
void LoadPlugins(const std::string& dir, std::ostream& out);

// Prints the registered providers in the registry's order and returns their names.
std::vector<std::string> ListProviders(std::ostream& out);

// Obtains a namespace from the "memory" provider, when it is registered, creates a class in it
// and finds that class again through a second request: the provider keeps its namespaces.
void ShowMemoryProvider(const std::vector<std::string>& providers, std::ostream& out);

// The message of the newest error-severity entry in the log, or "" when there is none.
std::string LastLoggedError();

#endif
