// foundation_tour: the foundation of libvyrcore at work.
//
// Shows the local time in its CIM and human forms, date/time arithmetic and ordering, a library
// exception with its status, and a log file written between its banners.
#include <cstdio>
#include <iostream>
#include <string>

#include <vyrcore/vyrcore.h>

using namespace NORXVYR20;

int main(int argc, char** argv) {
  const std::string logPath = argc > 1 ? argv[1] : "foundation_tour.log";

  TLogger::Initialize();
  ILogger* logger = TRootObject::GetCoreLogger();
  logger->SetLogFilename(logPath);

  const TCIMDateTime now = TOSSpecific::GetLocalTime();
  std::cout << "Local time (CIM form):   " << now.ToString() << "\n"
            << "Local time (human form): " << now.ToUIString() << "\n";

  const TCIMDateTime shift(1, 2, 30, 0, 1500);  // 1 day 2 hours 30 minutes, 1.5 ms
  const TCIMDateTime later = now + shift;
  std::cout << "Interval " << shift.ToString() << " is \"" << shift.ToUIString() << "\"\n"
            << "Now plus that interval:  " << later.ToString() << "\n"
            << "Back again:              " << (later - now).ToUIString() << "\n"
            << "Is now before later?     " << (now < later ? "yes" : "no") << "\n";

  const TCIMDateTime utc("20041106120000.000000+000");
  const TCIMDateTime sameInstant("20041106130000.000000+060");
  std::cout << utc.ToString() << " == " << sameInstant.ToString() << "? "
            << (utc == sameInstant ? "yes" : "no") << "\n";

  try {
    TCIMDateTime bad("2004-11-06 12:00");
  } catch (const TVYRException& e) {
    std::cout << "Parsing \"2004-11-06 12:00\" fails with " << e.what() << " (status "
              << e.GetStatusCode().GetCode() << ")\n";
    logger->OutputLogEntry(ILogger::kLogSeverityWarning, std::string("date/time rejected: ") + e.what());
  }

  logger->OutputLogEntry(ILogger::kLogSeverityStatus, "foundation tour at " + now.ToUIString());
  logger->OutputLogEntry(ILogger::kLogSeverityDebug, "not written: below the status threshold");
  std::cout << "Entries kept in memory: " << logger->GetLog().size() << "\n";

  // Destroying the logger writes the closing banner.
  delete TLogger::GetInstance();
  std::cout << "\nLog file " << logPath << ":\n";
  if (std::FILE* f = std::fopen(logPath.c_str(), "r")) {
    char line[512];
    while (std::fgets(line, sizeof line, f)) std::cout << "  " << line;
    std::fclose(f);
  }
  return 0;
}
