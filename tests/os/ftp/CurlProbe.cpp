// Runs both FTP transfers in a process of its own, so that the dynamic loader searches the
// LD_LIBRARY_PATH it was started with, and prints for each "<status> <logged messages>" on one
// line. The local file of the upload does not exist: loading must fail before it is touched.
#include <iostream>

#include <vyrcore/OSSpecific.h>

#include "support/TestSupport.h"

int main() {
  using NORXVYR20::TOSSpecific;
  NORXVYR20::TOSSpecific::SetFTPDownloadBase("ftp://127.0.0.1:1/");
  NORXVYR20::TOSSpecific::SetFTPUploadBase("ftp://127.0.0.1:1/");
  const std::function<void()> transfers[] = {
      [] { TOSSpecific::FTPFileFromORX("/nonexistent/local", "remote"); },
      [] { TOSSpecific::FTPFile("/nonexistent/local", "remote"); },
  };
  for (const auto& transfer : transfers) {
    vyrtest::CoreLog();
    std::cout << vyrtest::StatusThrownBy(transfer);
    for (const std::string& message : vyrtest::LoggedMessages()) std::cout << ' ' << message;
    std::cout << '\n';
  }
}
