#include "CollectionSteps.h"

#include <stdlib.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <stdexcept>

using namespace NORXVYR20;

namespace {

void Note(const std::string& message) {
  if (ILogger* logger = TRootObject::GetCoreLogger())
    logger->OutputLogEntry(ILogger::kLogSeverityStatus, message);
}

// A fresh private directory below the system's temporary one, removed with its contents.
class TTemporaryDirectory {
 public:
  TTemporaryDirectory() {
    std::string pattern = (std::filesystem::temp_directory_path() / "vyr-upload-XXXXXX").string();
    if (!mkdtemp(&pattern[0]))
      throw std::runtime_error("cannot make a temporary directory: " +
                               std::string(std::strerror(errno)));
    fPath = pattern;
  }
  ~TTemporaryDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(fPath, ignored);
  }
  TTemporaryDirectory(const TTemporaryDirectory&) = delete;
  TTemporaryDirectory& operator=(const TTemporaryDirectory&) = delete;
  const std::string& Path() const { return fPath; }

 private:
  std::string fPath;
};

}  // namespace

void SaveCollection(const TSnapshot& snapshot, const std::string& file, std::ostream& out) {
  TCIMXml::Save(snapshot, file);
  out << "Saved collection: " << file << "\n";
  Note("vyr-host: saved the collection to " + file);
}

void UploadCollection(const TSnapshot& snapshot, const std::string& name, std::string base,
                      std::ostream& out) {
  if (!base.empty()) {
    if (base.back() != '/') base += '/';
    TOSSpecific::SetFTPUploadBase(base);
  }
  const TTemporaryDirectory directory;
  const std::string file = directory.Path() + "/" + name + ".xml.gz";
  TCIMXml::Save(snapshot, file);
  TOSSpecific::FTPFile(file, name);
  out << "Uploaded collection: nimbar/toorx/nimline/zul_upload/" << name << ".xml.gz\n";
  Note("vyr-host: uploaded the collection as " + name);
}
