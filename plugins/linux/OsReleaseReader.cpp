#include "OsReleaseReader.h"

#include <sys/utsname.h>

#include <cctype>
#include <cerrno>
#include <cstring>
#include <optional>
#include <sstream>

namespace vyrlinux {

namespace {

bool IsKey(const std::string& key) {
  if (key.empty() || std::isdigit(static_cast<unsigned char>(key[0]))) return false;
  for (const char c : key)
    if (!std::isalnum(static_cast<unsigned char>(c)) && c != '_') return false;
  return true;
}

// One shell word; nothing when a quote is left open.
std::optional<std::string> ShellValue(const std::string& text) {
  std::string value;
  char quote = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const bool hasNext = i + 1 < text.size();
    if (quote == '\'') {
      if (c == '\'')
        quote = 0;
      else
        value += c;
    } else if (quote == '"') {
      if (c == '"')
        quote = 0;
      else if (c == '\\' && hasNext && std::strchr("$\"\\`", text[i + 1]))
        value += text[++i];
      else
        value += c;
    } else if (c == '\'' || c == '"') {
      quote = c;
    } else if (c == '\\' && hasNext) {
      value += text[++i];
    } else {
      value += c;
    }
  }
  if (quote) return std::nullopt;
  return value;
}

// The os-release assignments of the tree; nothing (explained in the log) without a readable file.
std::optional<std::map<std::string, std::string>> ReadOsRelease(const TSourceRoot& root) {
  // The distribution's file wins whenever it exists; the vendor's copy stands in only for a
  // missing one, as os-release itself prescribes.
  int error = 0;
  std::optional<std::string> text = ReadSourceFile(root.PathOf("/etc/os-release"), &error);
  if (!text && error == ENOENT) text = ReadSourceFile(root.PathOf("/usr/lib/os-release"));
  if (!text) return std::nullopt;
  return ParseOsRelease(*text);
}

std::string Lookup(const std::map<std::string, std::string>& values, const char* key) {
  const auto found = values.find(key);
  return found == values.end() ? std::string() : found->second;
}

}  // namespace

std::map<std::string, std::string> ParseOsRelease(const std::string& text) {
  std::map<std::string, std::string> values;
  std::istringstream lines(text);
  std::string line;
  while (std::getline(lines, line)) {
    line = TrimEnd(line);
    const std::size_t start = line.find_first_not_of(" \t");
    if (start == std::string::npos || line[start] == '#') continue;
    const std::size_t equals = line.find('=', start);
    if (equals == std::string::npos) continue;
    const std::string key = line.substr(start, equals - start);
    const std::optional<std::string> value = ShellValue(line.substr(equals + 1));
    if (IsKey(key) && value) values[key] = *value;
  }
  return values;
}

TOperatingSystem ReadOperatingSystem(const TSourceRoot& root) {
  const std::optional<std::map<std::string, std::string>> release = ReadOsRelease(root);
  const auto stated = [&release](const char* key) {
    return release ? Lookup(*release, key) : std::string();
  };
  utsname kernel;
  ::uname(&kernel);  // cannot fail with a valid buffer

  TOperatingSystem os;
  os.fName = stated("NAME");
  if (os.fName.empty()) {
    NoteDebug(std::string(release ? "os-release states no NAME" : "no readable os-release") +
              ": the operating system is named \"Linux\"");
    os.fName = "Linux";
  }
  os.fKernelRelease = kernel.release;
  os.fHostName = kernel.nodename;
  std::string version = stated("VERSION");
  for (const char* fallback : {"VERSION_ID", "BUILD_ID"})
    if (version.empty()) version = stated(fallback);
  os.fVersion = (version.empty() ? "" : version + ", ") + "kernel " + os.fKernelRelease;
  return os;
}

}  // namespace vyrlinux
