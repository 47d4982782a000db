// IdentityReport.h: the main job's report of who the machine is, for a person to read at a glance.
//
// SnapshotOfMachine asks the "linux" provider for its live namespace of the machine (read below
// rootDir; "/" when empty) and copies it into an in-memory snapshot with TCIMCopy;
// SnapshotOfCollection loads a saved collection into one. ShowIdentity prints from a snapshot,
// through TCIMSchemaHelper, one line per fact: host name, product name, machine type
// and model, serial number, operating system name, version and type, the data source's version
// and its parts, then the SCSI devices; with media, the removable drives found among them and the
// diskette drive, which is probed by mounting it (a diskette that mounts stays mounted). A fact the machine does not give reads "unavailable (why)";
// a serial number hidden from an unprivileged user reads "needs root" (for a machine read live;
// a collection just does not hold it). A missing "linux" provider, a failing copy or load throws
// (TVYRException, or std::runtime_error naming the missing provider).
#ifndef VYR_HOST_IDENTITYREPORT_H
#define VYR_HOST_IDENTITYREPORT_H

#include <ostream>
#include <string>

#include <vyrcore/vyrcore.h>

typedef boost::shared_ptr<NORXVYR20::ICIMNamespace> TSnapshot;

TSnapshot SnapshotOfMachine(const std::string& rootDir);
TSnapshot SnapshotOfCollection(const std::string& file);

// What the report is about: the machine read live below rootDir, or the collection loaded from
// file (when file is not empty).
struct TReportSubject {
  std::string rootDir;
  std::string file;
};

void ShowIdentity(const TSnapshot& snapshot, const TReportSubject& subject, bool media,
                  std::ostream& out);

#endif
