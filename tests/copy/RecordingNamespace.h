// RecordingNamespace.h: a copy target that writes down, in order, every creation, qualifier and
// commit it receives, and can fail on a chosen one.
//
// It stands in front of an in-memory namespace and forwards everything to it, so the copy runs
// against a real provider. Each entry names the call and what it was made on ("CreateClass B : A",
// "Commit class B", "A.P AddQualifier Key", "Commit qualifier Key"...). When an entry equals
// FailOn, the call throws TProviderFault carrying that entry before it reaches the namespace. The
// inner namespace is held weakly (the caller keeps it), since references the copy stores point
// back here. Calls that take a context write into it, so a map handed to two calls shows up.
#ifndef VYRCORE_TESTS_COPY_RECORDINGNAMESPACE_H
#define VYRCORE_TESTS_COPY_RECORDINGNAMESPACE_H

#include <string>
#include <vector>

#include <vyrcore/vyrcore.h>

namespace vyrtest {

struct TProviderFault {
  std::string fEntry;
};

struct TRecording {
  std::vector<std::string> fEntries;
  std::string fFailOn;

  void Note(const std::string& entry) {
    fEntries.push_back(entry);
    if (entry == fFailOn) throw TProviderFault{entry};
  }
  // Every call must get a map of its own, empty: one written by an earlier call is noted.
  void Touch(NORXVYR20::TCIMContext& context) {
    if (!context.empty()) fEntries.push_back("a context map came back");
    context["seen"] = NORXVYR20::TCIMValue(true);
  }
};

boost::shared_ptr<NORXVYR20::ICIMNamespace> MakeRecordingNamespace(
    const boost::shared_ptr<NORXVYR20::ICIMNamespace>& inner,
    const boost::shared_ptr<TRecording>& recording);

}  // namespace vyrtest

#endif
