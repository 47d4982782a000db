// LinuxFixture.h: the linux provider loaded as a real provider, fixture trees laid out as the
// kernel lays out sysfs and the distribution /etc, and a plain reading of what was gathered.
#ifndef VYRCORE_TESTS_LINUX_LINUXFIXTURE_H
#define VYRCORE_TESTS_LINUX_LINUXFIXTURE_H

#include <sys/utsname.h>
#include <vyrcore/vyrcore.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "support/TestSupport.h"

namespace vyrtest {

using namespace NORXVYR20;

// What the "linux" provider (loaded from beside the private libvyrcore on first use) gathers
// below root; an empty root leaves the root entry out of the context.
inline boost::shared_ptr<ICIMNamespace> LinuxNamespace(const std::string& root) {
  static const bool loaded = (TOSSpecific::LoadNSPLibrary("linux"), true);
  (void)loaded;
  TCIMContext context;
  if (!root.empty()) context["RootDirectory"] = TCIMValue(root);
  return TRootObject::GetNamespaceProviderManager()->GetNamespaceProvider("linux")->GetNamespace(
      "root/linux", context);
}

// What an enumeration delivers: enumerate(callback) is called once.
template <typename X, typename Enumerate>
std::vector<boost::shared_ptr<X>> Collected(Enumerate enumerate) {
  std::vector<boost::shared_ptr<X>> all;
  boost::function<bool(boost::shared_ptr<X>)> collect = TAddToVectorCallback<X>(all);
  enumerate(collect);
  return all;
}
inline std::vector<boost::shared_ptr<ICIMInstance>> Instances(
    const boost::shared_ptr<ICIMNamespace>& cimNamespace, const std::string& className) {
  TCIMContext context;
  const boost::shared_ptr<ICIMClass> cimClass = cimNamespace->GetClass(className, context);
  return Collected<ICIMInstance>([&](auto& f) { cimClass->EnumerateInstances(f, true, context); });
}
// Each instance as property name to text form. Null values are left out, so comparing whole maps
// also shows a value that should have stayed null.
typedef std::map<std::string, std::string> Values;
inline std::vector<Values> InstancesOf(const boost::shared_ptr<ICIMNamespace>& cimNamespace,
                                       const std::string& className) {
  TCIMContext context;
  std::vector<Values> result;
  for (const auto& instance : Instances(cimNamespace, className)) {
    result.emplace_back();
    for (const auto& property :
         Collected<ICIMProperty>([&](auto& f) { instance->EnumerateProperties(f, context); }))
      if (!property->GetValue().IsNull())
        result.back()[property->GetName()] = property->GetValue().ToString();
  }
  return result;
}

// Empties the core log and makes it keep debug lines.
inline void StartDebugLog() { CoreLog().SetLogThreshold(ILogger::kLogSeverityDebug); }
inline bool Logged(const std::string& text) {
  for (const std::string& message : LoggedMessages())
    if (message.find(text) != std::string::npos) return true;
  return false;
}

inline utsname Uname() {
  utsname names;
  uname(&names);
  return names;
}

}  // namespace vyrtest

#endif
