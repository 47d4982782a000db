#include "support/FtpServer.h"

#include <netinet/in.h>
#include <signal.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <stdexcept>

namespace vyrtest {

const char kFtpUploadDirectory[] = "nimbar/toorx/nimline/zul_upload/";

FtpServer::FtpServer() {
  std::filesystem::create_directories(fRoot / "down/sub");
  std::filesystem::create_directories(fRoot / (std::string("up/") + kFtpUploadDirectory));
  int ends[2];
  if (pipe(ends) != 0) throw std::runtime_error("pipe");
  fPid = fork();
  if (fPid == 0) {
    dup2(ends[1], 1);
    close(ends[0]);
    execl(VYR_FTP_SERVER, VYR_FTP_SERVER, fRoot.Path().c_str(), static_cast<char*>(nullptr));
    _exit(127);
  }
  close(ends[1]);
  FILE* announced = fdopen(ends[0], "r");
  if (!announced || std::fscanf(announced, "%d", &fPort) != 1) fPort = -1;
  if (announced) std::fclose(announced);
}

FtpServer::~FtpServer() {
  kill(fPid, SIGTERM);
  waitpid(fPid, nullptr, 0);
}

std::string FtpServer::Url(const std::string& tree) const {
  return "ftp://127.0.0.1:" + std::to_string(fPort) + "/" + tree + "/";
}

int ClosedLoopbackPort() {
  const int probe = socket(AF_INET, SOCK_STREAM, 0);
  sockaddr_in address{};
  address.sin_family = AF_INET;
  address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
  socklen_t length = sizeof address;
  bind(probe, reinterpret_cast<sockaddr*>(&address), sizeof address);
  getsockname(probe, reinterpret_cast<sockaddr*>(&address), &length);
  close(probe);
  return ntohs(address.sin_port);
}

}  // namespace vyrtest
