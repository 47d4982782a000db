#include "support/TestSupport.h"

#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace vyrtest {

ScopedEnv::ScopedEnv(const char* name, const char* value) : fName(name) {
  if (const char* old = std::getenv(name)) fOldValue = old;
  Assign(value);
}

ScopedEnv::~ScopedEnv() { Assign(fOldValue ? fOldValue->c_str() : nullptr); }

void ScopedEnv::Assign(const char* value) {
  if (value)
    setenv(fName.c_str(), value, 1);
  else
    unsetenv(fName.c_str());
  if (fName == "TZ") tzset();
}

ScopedTempDir::ScopedTempDir() {
  const char* base = std::getenv("TMPDIR");
  std::string pattern = std::string(base && *base ? base : "/tmp") + "/vyrtest.XXXXXX";
  if (!mkdtemp(pattern.data())) throw std::runtime_error("mkdtemp failed");
  fPath = pattern;
}

ScopedTempDir::~ScopedTempDir() {
  // Tests make directories unreadable on purpose; give the owner everything back before removal.
  std::string cmd = "chmod -R u+rwx '" + fPath + "' 2>/dev/null; rm -rf '" + fPath + "'";
  if (std::system(cmd.c_str()) != 0) std::fprintf(stderr, "could not remove %s\n", fPath.c_str());
}

OutputCapture::OutputCapture(std::vector<int> descriptors) {
  char name[] = "/tmp/vyroutput.XXXXXX";
  const int fd = mkstemp(name);
  if (fd < 0) throw std::runtime_error("mkstemp failed");
  fFile = name;
  std::fflush(nullptr);
  for (const int descriptor : descriptors) {
    fSaved.emplace_back(descriptor, dup(descriptor));
    dup2(fd, descriptor);
  }
  close(fd);
}

OutputCapture::~OutputCapture() { Finish(); }

std::string OutputCapture::Finish() {
  if (fSaved.empty()) return "";
  std::fflush(nullptr);
  for (const auto& [descriptor, saved] : fSaved) {
    dup2(saved, descriptor);
    close(saved);
  }
  fSaved.clear();
  const std::string text = ReadFile(fFile);
  unlink(fFile.c_str());
  return text;
}

ProgramResult RunProgram(const std::vector<std::string>& argv) {
  // Through the shell, each argument in single quotes (a quote inside one becomes '\'').
  std::string command;
  for (const std::string& arg : argv) {
    command += '\'';
    for (const char c : arg) command += c == '\'' ? std::string("'\\''") : std::string(1, c);
    command += "' ";
  }
  command += "2>&1";
  FILE* pipe = popen(command.c_str(), "r");
  if (!pipe) throw std::runtime_error("popen failed");
  ProgramResult result{-1, ""};
  char buffer[4096];
  while (const std::size_t n = std::fread(buffer, 1, sizeof buffer, pipe))
    result.output.append(buffer, n);
  // A signal that ends the program makes the shell exit with 128 + its number, or ends the shell
  // itself if it ran the program in its place: both read the same.
  const int status = pclose(pipe);
  result.exitStatus = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
  return result;
}

int OpenFdCount() {
  // The listing's own descriptor is among those it lists.
  const auto listed = std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  return static_cast<int>(listed) - 1;
}

mode_t ModeOf(const std::string& path) {
  struct stat info {};
  return stat(path.c_str(), &info) == 0 ? info.st_mode & 07777 : 0;
}

int RunInChild(const std::function<int()>& body) {
  std::fflush(nullptr);
  pid_t pid = fork();
  if (pid < 0) throw std::runtime_error("fork failed");
  if (pid == 0) {
    int code = 254;
    try {
      code = body();
    } catch (...) {
    }
    std::fflush(nullptr);
    _exit(code);
  }
  int status = 0;
  while (waitpid(pid, &status, 0) < 0) {
    if (errno != EINTR) throw std::runtime_error("waitpid failed");
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

int StatusThrownBy(const std::function<void()>& call) {
  try {
    call();
  } catch (const NORXVYR20::TVYRException& e) {
    return e.GetStatusCode().GetCode();
  }
  return -1;
}

NORXVYR20::ILogger& CoreLog() {
  if (!NORXVYR20::TLogger::GetInstance()) NORXVYR20::TLogger::Initialize();
  NORXVYR20::ILogger& logger = *NORXVYR20::TLogger::GetInstance();
  logger.SetLogThreshold(NORXVYR20::ILogger::kLogSeverityStatus);
  logger.ClearLog();
  return logger;
}

std::vector<std::string> LoggedMessages() {
  std::vector<std::string> messages;
  if (NORXVYR20::TLogger* logger = NORXVYR20::TLogger::GetInstance())
    for (const auto& entry : logger->GetLog()) messages.push_back(entry.fMessage);
  return messages;
}

void WriteFile(const std::string& path, const std::string& contents) {
  std::ofstream out(path, std::ios::binary | std::ios::trunc);
  out << contents;
  if (!out) throw std::runtime_error("cannot write " + path);
}

void MakeTree(const std::string& root, const std::vector<TreeEntry>& entries) {
  for (const TreeEntry& entry : entries) {
    const std::filesystem::path path = std::filesystem::path(root) / entry.path;
    const bool directory = !entry.link && entry.path.back() == '/';
    std::filesystem::create_directories(directory ? path : path.parent_path());
    if (entry.link) std::filesystem::create_symlink(entry.contents, path);
    if (!entry.link && !directory) WriteFile(path.string(), entry.contents);
  }
}

std::string ReadFile(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(in), {});
}

}  // namespace vyrtest
