// CurlLibrary.h: libcurl opened at run time, for the FTP transfers (never installed).
//
// libcurl is not linked: TCurlLibrary opens "libcurl.so" with lazy binding and looks up the six
// entry points the transfers use, in a fixed order; a missing library or entry point logs
// "TOSSpecific|FTPFile: Error opening/loading curl library: <loader text>" and throws
// kVYRStatusLibCurlFailure. The option numbers and result codes are libcurl's stable ABI values,
// so no libcurl header is needed to build. Each of the three owners releases what it holds when
// it goes out of scope, on success and failure alike: declare the library first, then the global
// state, then the handle, and they are torn down in the reverse order libcurl needs. None copies;
// libcurl's global state is process-wide, so one transfer at a time.
#ifndef VYRCORE_OS_CURLLIBRARY_H
#define VYRCORE_OS_CURLLIBRARY_H

#include <cstddef>
#include <string>

namespace NORXVYR20 {
namespace detail {

// libcurl's option numbers (CURLoption) and results (CURLcode) that the transfers use.
enum ECurlOption : int {
  kCurlOptUpload = 46,
  kCurlOptWriteData = 10001,
  kCurlOptUrl = 10002,
  kCurlOptReadData = 10009,
  kCurlOptErrorBuffer = 10010,
  kCurlOptWriteFunction = 20011,
};
constexpr int kCurlCouldntResolveHost = 6;
constexpr int kCurlCouldntConnect = 7;
constexpr long kCurlGlobalAll = 3;
// libcurl writes at most this many bytes of error text (CURL_ERROR_SIZE).
constexpr std::size_t kCurlErrorSize = 256;

class TCurlLibrary {
 public:
  using TGlobalInit = int (*)(long);
  using TEasyInit = void* (*)();
  using TEasySetopt = int (*)(void*, int, ...);
  using TEasyPerform = int (*)(void*);
  using TEasyCleanup = void (*)(void*);
  using TGlobalCleanup = void (*)();

  TCurlLibrary();
  ~TCurlLibrary();
  TCurlLibrary(const TCurlLibrary&) = delete;
  TCurlLibrary& operator=(const TCurlLibrary&) = delete;

  TGlobalInit fGlobalInit = nullptr;
  TEasyInit fEasyInit = nullptr;
  TEasySetopt fEasySetopt = nullptr;
  TEasyPerform fEasyPerform = nullptr;
  TEasyCleanup fEasyCleanup = nullptr;
  TGlobalCleanup fGlobalCleanup = nullptr;

 private:
  void* fHandle;
};

// curl_global_init(CURL_GLOBAL_ALL) now, curl_global_cleanup at the end of the scope.
class TCurlGlobal {
 public:
  explicit TCurlGlobal(const TCurlLibrary& curl) : fCurl(curl) { fCurl.fGlobalInit(kCurlGlobalAll); }
  ~TCurlGlobal() { fCurl.fGlobalCleanup(); }
  TCurlGlobal(const TCurlGlobal&) = delete;
  TCurlGlobal& operator=(const TCurlGlobal&) = delete;

 private:
  const TCurlLibrary& fCurl;
};

// One easy handle (a null one logs "TOSSpecific|FTPFile: Error initalizing curl", spelled so, and
// throws kVYRStatusLibCurlFailure), with its error buffer, options and transfer.
class TCurlEasy {
 public:
  explicit TCurlEasy(const TCurlLibrary& curl);
  ~TCurlEasy();
  TCurlEasy(const TCurlEasy&) = delete;
  TCurlEasy& operator=(const TCurlEasy&) = delete;

  // Sets one option to a pointer, a function pointer or a long (libcurl reads it by the option's
  // type); a non-zero result logs "TOSSpecific|FTPFile: " + failureMessage and throws
  // kVYRStatusLibCurlFailure.
  template <typename Value>
  void SetOption(ECurlOption option, Value value, const std::string& failureMessage) {
    if (fCurl.fEasySetopt(fHandle, option, value) != 0) FailOption(failureMessage);
  }
  // Where libcurl may write its error text, for kCurlOptErrorBuffer; read back with ErrorText().
  char* ErrorBuffer() { return fErrorBuffer; }
  // The transfer's libcurl result code.
  int Perform();
  std::string ErrorText() const { return fErrorBuffer; }

 private:
  [[noreturn]] static void FailOption(const std::string& failureMessage);

  const TCurlLibrary& fCurl;
  void* fHandle;
  char fErrorBuffer[kCurlErrorSize] = {};
};

}  // namespace detail
}  // namespace NORXVYR20

#endif
