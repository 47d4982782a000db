#include "HostSteps.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <iterator>
#include <stdexcept>

using namespace NORXVYR20;

namespace {

void Note(const std::string& message,
          ILogger::EVYRLogSeverity severity = ILogger::kLogSeverityStatus) {
  if (ILogger* logger = TRootObject::GetCoreLogger()) logger->OutputLogEntry(severity, message);
}

// The library's status codes say what failed, not which file or why. Where a step involved a path,
// the host asks the system the same question again and logs the path with the system's answer, so
// that the failure report shows it. These probes only repeat what the failed call just tried.

// Why the log file cannot be opened as the logger opens it (created or truncated, for writing).
void NoteWhyNotWritable(const std::string& path) {
  const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
  if (fd < 0) {
    Note(path + ": " + std::strerror(errno), ILogger::kLogSeverityError);
    return;
  }
  ::close(fd);
}

// Which of root and its sub-directories cannot be listed, and why: the first one refused.
void NoteWhichDirectoryRefuses(const std::string& root) {
  namespace fs = std::filesystem;
  std::vector<fs::path> directories = {root};
  std::error_code error;
  for (fs::directory_iterator entry(root, error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code ignored;
    if (entry->is_directory(ignored)) directories.push_back(entry->path());
  }
  for (const fs::path& directory : directories) {
    fs::directory_iterator listing(directory, error);
    if (error) {
      Note(directory.string() + ": " + error.message(), ILogger::kLogSeverityError);
      return;
    }
  }
}

// FindPlugins tests sub-directory names from the current directory, so the search runs from
// inside the plug-in directory; the previous directory is restored on every way out.
class TEnterDirectory {
 public:
  explicit TEnterDirectory(const std::string& dir) : fPrevious(std::filesystem::current_path()) {
    if (chdir(dir.c_str()) != 0)
      throw std::runtime_error("cannot enter " + dir + ": " + std::strerror(errno));
  }
  ~TEnterDirectory() {
    std::error_code ignored;
    std::filesystem::current_path(fPrevious, ignored);
  }
  TEnterDirectory(const TEnterDirectory&) = delete;
  TEnterDirectory& operator=(const TEnterDirectory&) = delete;

 private:
  std::filesystem::path fPrevious;
};

// An absolute form of dir without a trailing separator, so that found paths read cleanly.
std::string AbsoluteDirectory(const std::string& dir) {
  std::string absolute = std::filesystem::absolute(dir).lexically_normal().string();
  while (absolute.size() > 1 && absolute.back() == '/') absolute.pop_back();
  return absolute;
}

std::string SpecificationOf(const std::string& pluginPath) {
  try {
    return TOSSpecific::BuildSpecificationPath(pluginPath);
  } catch (const TVYRException& e) {
    return std::string("none (") + e.what() + ")";
  }
}

}  // namespace

void StartLogger(const std::string& logFile) {
  TLogger::Initialize();
  if (logFile.empty()) return;
  try {
    TRootObject::GetCoreLogger()->SetLogFilename(logFile);
  } catch (const TVYRException&) {
    NoteWhyNotWritable(logFile);
    throw;
  }
}

void LoadProviders(std::ostream& out) {
  for (const std::string& name : TOSSpecific::FindNSPs()) {
    TOSSpecific::LoadNSPLibrary(name);
    out << "Loaded provider library: " << name << "\n";
    Note("vyr-host: loaded provider library " + name);
  }
}

std::vector<std::unique_ptr<INamespaceConsumer>> LoadConsumers(std::ostream& out) {
  std::vector<std::unique_ptr<INamespaceConsumer>> consumers;
  for (const std::string& name : TOSSpecific::FindNSCs()) {
    consumers.emplace_back(TOSSpecific::LoadNSCLibrary(name));
    out << "Loaded consumer: " << name << "\n";
    Note("vyr-host: loaded consumer " + name);
  }
  return consumers;
}

void LoadPlugins(const std::string& dir, std::ostream& out) {
  const std::string root = AbsoluteDirectory(dir);
  const TEnterDirectory inside(root);
  std::vector<std::string> plugins;
  try {
    plugins = TOSSpecific::FindPlugins(root);
  } catch (const TVYRException&) {
    NoteWhichDirectoryRefuses(root);
    throw;
  }
  for (const std::string& path : plugins) {
    // The handle is not needed here: the plug-in stays loaded, as every plug-in does.
    TOSSpecific::LoadPluginLibrary(path);
    out << "Loaded plug-in: " << path << "\n"
        << "  specification: " << SpecificationOf(path) << "\n";
    Note("vyr-host: loaded plug-in " + path);
  }
}

std::vector<std::string> ListProviders(std::ostream& out) {
  std::vector<std::string> names;
  boost::function<bool(boost::shared_ptr<INamespaceProvider>)> collect =
      [&names](boost::shared_ptr<INamespaceProvider> provider) {
        std::map<std::string, TCIMValue> context;
        names.push_back(provider->GetName(context));
        return true;
      };
  TRootObject::GetNamespaceProviderManager()->EnumerateNamespaceProviders(collect);
  out << "Registered providers:" << (names.empty() ? " none" : "") << "\n";
  for (const std::string& name : names) out << "  " << name << "\n";
  return names;
}

TLogMark::TLogMark() {
  if (TLogger* logger = TLogger::GetInstance()) fKept = logger->GetLog().size();
}

std::vector<std::string> TLogMark::ErrorsSince() const {
  std::vector<std::string> errors;
  TLogger* logger = TLogger::GetInstance();
  if (!logger) return errors;
  const auto& log = logger->GetLog();
  auto entry = log.begin();
  std::advance(entry, std::min(fKept, log.size()));
  for (; entry != log.end(); ++entry)
    if (entry->fSeverity == ILogger::kLogSeverityError) errors.push_back(entry->fMessage);
  return errors;
}
