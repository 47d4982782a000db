// FtpTransfer.cpp: TOSSpecific's anonymous FTP download and upload, through libcurl opened at run
// time (os/CurlLibrary.h).
//
// The two server roots are deployment settings: they start as the build's VYR_FTP_DOWNLOAD_BASE
// and VYR_FTP_UPLOAD_BASE (hosts under the reserved ".invalid" domain unless a deployment sets
// them) and are replaced with SetFTPDownloadBase and SetFTPUploadBase. Everything a transfer
// acquires is owned by a scoped object, declared in the order that makes its release order the
// one libcurl needs: output stream, handle, global state, library (download); handle, global
// state, input stream, library (upload).
#include <vyrcore/OSSpecific.h>

#include <fcntl.h>
#include <sys/stat.h>

#include <cstdio>
#include <memory>

#include "core/Fail.h"
#include "os/CurlLibrary.h"
#include "os/UniqueFd.h"

namespace NORXVYR20 {
namespace {

const std::string kPrefix = "TOSSpecific|FTPFile: ";

std::string& DownloadBase() {
  static std::string base = VYR_FTP_DOWNLOAD_BASE;
  return base;
}

std::string& UploadBase() {
  static std::string base = VYR_FTP_UPLOAD_BASE;
  return base;
}

struct TCloseStream {
  void operator()(std::FILE* stream) const { std::fclose(stream); }
};
using TStream = std::unique_ptr<std::FILE, TCloseStream>;

// The download's write context: the local file is opened on the first data, so a remote file
// that is missing or empty leaves nothing behind.
struct TDownloadSink {
  const char* fFileName;
  TStream fStream;
};

// Runs the transfer and maps its result: an unreachable server is kVYRStatusConnectionFailed
// (logged as unreachableMessage), any other failure kVYRStatusLibCurlFailure with libcurl's text.
void Perform(detail::TCurlEasy& easy, const std::string& unreachableMessage,
             const std::string& failureMessage) {
  const int result = easy.Perform();
  if (result == detail::kCurlCouldntResolveHost || result == detail::kCurlCouldntConnect)
    detail::FailWithLog(kVYRStatusConnectionFailed, kPrefix + unreachableMessage);
  if (result != 0)
    detail::FailWithLog(kVYRStatusLibCurlFailure, kPrefix + failureMessage + easy.ErrorText());
}

}  // namespace

std::size_t curl_fwrite(void* data, std::size_t size, std::size_t count, void* sink) {
  TDownloadSink& download = *static_cast<TDownloadSink*>(sink);
  if (!download.fStream) {
    download.fStream.reset(std::fopen(download.fFileName, "wb"));
    if (!download.fStream) return 4294967295u;
  }
  return std::fwrite(data, size, count, download.fStream.get());
}

void TOSSpecific::SetFTPDownloadBase(std::string base) { DownloadBase() = std::move(base); }

void TOSSpecific::SetFTPUploadBase(std::string base) { UploadBase() = std::move(base); }

bool TOSSpecific::FTPFileFromORX(std::string localFile, std::string remotePath) {
  const std::string url = DownloadBase() + remotePath;
  detail::TCurlLibrary curl;
  detail::TCurlGlobal global(curl);
  detail::TCurlEasy easy(curl);
  TDownloadSink sink{localFile.c_str(), nullptr};
  easy.SetOption(detail::kCurlOptErrorBuffer, easy.ErrorBuffer(),
                 "Error configuring curl error buffer");
  easy.SetOption(detail::kCurlOptWriteFunction, &curl_fwrite,
                 "Error setting curl write function");
  easy.SetOption(detail::kCurlOptWriteData, &sink, "Error setting curl write function");
  easy.SetOption(detail::kCurlOptUrl, url.c_str(), "Error setting curl target");
  Perform(easy, "Error connecting to ORX", "Error performing ftp get command: ");
  return true;
}

bool TOSSpecific::FTPFile(std::string localFile, std::string remoteName) {
  const std::string url = UploadBase() + "nimbar/toorx/nimline/zul_upload/" + remoteName + ".xml.gz";
  detail::TCurlLibrary curl;  // before the local file is touched

  detail::UniqueFd file;
  file.Reset(::open(localFile.c_str(), O_RDONLY | O_CLOEXEC));
  struct stat status;
  // The size is only asked for, never sent: a file that cannot be queried cannot be sent.
  if (::fstat(file.Get(), &status) < 0)
    detail::FailWithLog(kVYRStatusLibCurlFailure, kPrefix + "Error getting file size");
  TStream input(::fdopen(file.Get(), "rb"));
  if (!input) detail::FailWithLog(kVYRStatusLibCurlFailure, kPrefix + "Error creating file stream");
  file.Release();  // the stream owns the descriptor now

  detail::TCurlGlobal global(curl);
  detail::TCurlEasy easy(curl);
  easy.SetOption(detail::kCurlOptErrorBuffer, easy.ErrorBuffer(),
                 "Error configuring curl error buffer");
  easy.SetOption(detail::kCurlOptUpload, 1L, "Error setting curl upload");
  easy.SetOption(detail::kCurlOptUrl, url.c_str(), "Error setting curl target");
  easy.SetOption(detail::kCurlOptReadData, input.get(), "Error setting curl upload file");
  Perform(easy, "Error connecting to ORX Service", "Error performing upload command: ");
  return true;
}

}  // namespace NORXVYR20
