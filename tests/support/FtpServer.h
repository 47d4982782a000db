// FtpServer.h: a real anonymous FTP server on 127.0.0.1 for the transfer tests (Debian's
// pyftpdlib, run from ftp_server.py beside this file in a child process).
//
// The server's tree is a fresh temporary directory: root/down readable, root/up writable with the
// upload directory "nimbar/toorx/nimline/zul_upload/" already in place. The child is stopped and
// reaped, and the tree removed, when the object goes. Not copyable; one thread at a time.
#ifndef VYRCORE_TESTS_SUPPORT_FTPSERVER_H
#define VYRCORE_TESTS_SUPPORT_FTPSERVER_H

#include <sys/types.h>

#include <string>

#include "support/TestSupport.h"

namespace vyrtest {

class FtpServer : boost::noncopyable {
 public:
  FtpServer();
  ~FtpServer();
  // False when the server did not announce its port (python3-pyftpdlib missing, say).
  bool IsRunning() const { return fPort > 0; }
  // The ftp URL of a top directory of the tree ("down" or "up"), ending in "/".
  std::string Url(const std::string& tree) const;
  // A path inside the server's tree, on the local disk.
  std::string operator/(const std::string& path) const { return fRoot / path; }

 private:
  ScopedTempDir fRoot;
  pid_t fPid = -1;
  int fPort = -1;
};

// The directory below the upload root where uploads land.
extern const char kFtpUploadDirectory[];

// A loopback port nobody listens on: bound to find it, then let go.
int ClosedLoopbackPort();

}  // namespace vyrtest

#endif
