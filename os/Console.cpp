// Console.cpp: TOSSpecific's unbuffered keyboard input from standard input.
//
// Each call switches the terminal to raw local modes (every c_lflag bit cleared: no line editing,
// no echo, no signal keys) for its own length and puts the saved settings back on every way out,
// through TRawTerminal. The settings are process-wide: one call at a time. When standard input is
// not a terminal there is nothing to switch and the call works on the descriptor as it is.
#include <vyrcore/OSSpecific.h>

#include <sys/select.h>
#include <termios.h>
#include <unistd.h>

#include <cstdio>

#include "os/Eintr.h"

namespace NORXVYR20 {
namespace {

class TRawTerminal {
 public:
  TRawTerminal() : fSaved(::tcgetattr(STDIN_FILENO, &fSettings) == 0) {
    if (!fSaved) return;
    termios raw = fSettings;
    raw.c_lflag = 0;
    ::tcsetattr(STDIN_FILENO, TCSANOW, &raw);
  }
  ~TRawTerminal() {
    if (fSaved) ::tcsetattr(STDIN_FILENO, TCSANOW, &fSettings);
  }
  TRawTerminal(const TRawTerminal&) = delete;
  TRawTerminal& operator=(const TRawTerminal&) = delete;

 private:
  termios fSettings{};
  bool fSaved;
};

}  // namespace

bool TOSSpecific::IsKeyWaiting() {
  TRawTerminal raw;
  fd_set readable;
  FD_ZERO(&readable);
  FD_SET(STDIN_FILENO, &readable);
  timeval noWait{0, 0};
  const int ready = detail::RetryOnEintr(
      [&] { return ::select(STDIN_FILENO + 1, &readable, nullptr, nullptr, &noWait); });
  // A poll that fails reports a waiting key, deliberately: the caller goes on to read and meets
  // the failure there (end of file), instead of polling a broken console for ever.
  return ready < 0 || FD_ISSET(STDIN_FILENO, &readable);
}

int TOSSpecific::GetKeyboardChar() {
  TRawTerminal raw;
  return std::getchar();
}

}  // namespace NORXVYR20
