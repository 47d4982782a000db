// libmemory.nsp.so: the provider named "memory", serving in-memory namespaces.
//
// Loading this library registers the provider with the process's registry, from the constructor
// of a static object: the loader calls nothing in a provider library, so that is the only moment
// it gets. GetNamespace(name) returns the namespace of that name, made empty on first request and
// kept by the provider (and so by the registry) for the rest of the process. One thread at a
// time, as the registry itself.
#include <map>
#include <string>

#include <boost/shared_ptr.hpp>

#include <vyrcore/vyrcore.h>
#include <vyrcore/vyrmemory.h>

namespace {

using NORXVYR20::ICIMNamespace;
using NORXVYR20::TCIMValue;

class TMemoryProvider : public NORXVYR20::INamespaceProvider {
 public:
  const std::string& GetName(std::map<std::string, TCIMValue>&) override { return fName; }

  boost::shared_ptr<ICIMNamespace> GetNamespace(const std::string& name,
                                                std::map<std::string, TCIMValue>&) override {
    auto found = fNamespaces.find(name);
    if (found == fNamespaces.end())
      found = fNamespaces.emplace(name, NORXVYR20::TMemoryNamespace::Create(name)).first;
    return found->second;
  }

 private:
  const std::string fName = "memory";
  std::map<std::string, boost::shared_ptr<ICIMNamespace>> fNamespaces;
};

struct TRegisterMemoryProvider {
  TRegisterMemoryProvider() {
    NORXVYR20::TRootObject::GetNamespaceProviderManager()->RegisterNamespaceProvider(
        boost::shared_ptr<NORXVYR20::INamespaceProvider>(new TMemoryProvider()));
  }
};

const TRegisterMemoryProvider gRegistration;

}  // namespace
