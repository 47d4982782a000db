// CollectionSteps.h: vyr-host's saving and uploading of the snapshot as a CIM-XML collection.
//
// SaveCollection writes the snapshot to a file (gzip-compressed when its name ends in ".gz").
// UploadCollection saves it, compressed, to a file of a fresh temporary directory named
// NAME.xml.gz and sends that with TOSSpecific::FTPFile, so that it lands as
// nimbar/toorx/nimline/zul_upload/NAME.xml.gz below the upload server's root (base, when not
// empty, replaces the build's setting; a missing trailing "/" is added). The temporary directory
// is removed on every way out. Each prints one line saying what it did and notes it in the log;
// failures are the library's TVYRException, logged there first.
#ifndef VYR_HOST_COLLECTIONSTEPS_H
#define VYR_HOST_COLLECTIONSTEPS_H

#include <ostream>
#include <string>

#include "IdentityReport.h"

void SaveCollection(const TSnapshot& snapshot, const std::string& file, std::ostream& out);
void UploadCollection(const TSnapshot& snapshot, const std::string& name, std::string base,
                      std::ostream& out);

#endif
