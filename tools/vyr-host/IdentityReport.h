// IdentityReport.h: the main job's report of who the machine is, for a person to read at a glance.
//
// ShowIdentity asks the "linux" provider for its live namespace of the machine (read below
// rootDir; "/" when empty), copies it into an in-memory snapshot with TCIMCopy, and prints from
// the snapshot, through TCIMSchemaHelper, one line per fact: host name, product name, machine type
// and model, serial number, operating system name, version and type, the data source's version
// and its parts, then the SCSI devices; with media, the removable drives found among them and the
// diskette drive, which is probed by mounting it (a diskette that mounts stays mounted). A fact the machine does not give reads "unavailable (why)";
// a serial number hidden from an unprivileged user reads "needs root". A missing "linux" provider
// or a failing copy throws (TVYRException, or std::runtime_error naming the missing provider).
#ifndef VYR_HOST_IDENTITYREPORT_H
#define VYR_HOST_IDENTITYREPORT_H

#include <ostream>
#include <string>

void ShowIdentity(const std::string& rootDir, bool media, std::ostream& out);

#endif
