// The registry of namespace providers: first registration wins, byte-wise name order, stopping
// enumerations, logged failed lookups, and the process's one instance.
#include <string>
#include <vector>

#include <vyrcore/NamespaceProviderManager.h>
#include <vyrcore/RootObject.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

class TFakeProvider : public INamespaceProvider {
 public:
  explicit TFakeProvider(const std::string& name) : fName(name) {}
  const std::string& GetName(std::map<std::string, TCIMValue>&) override { return fName; }
  boost::shared_ptr<ICIMNamespace> GetNamespace(const std::string&,
                                                std::map<std::string, TCIMValue>&) override {
    throw TVYRException(kVYRStatusNotFound);
  }
  std::string fName;
};

boost::shared_ptr<TFakeProvider> Provider(const std::string& name) {
  return boost::shared_ptr<TFakeProvider>(new TFakeProvider(name));
}

TEST(NamespaceProviderManagerTest, FirstRegistrationWinsAndNamesAreExactKeys) {
  TNamespaceProviderManager registry;
  const auto first = Provider("memory");
  const auto upper = Provider("Memory");
  registry.RegisterNamespaceProvider(first);
  registry.RegisterNamespaceProvider(Provider("memory"));
  registry.RegisterNamespaceProvider(upper);
  EXPECT_EQ(registry.GetNamespaceProvider("memory"), first);
  EXPECT_EQ(registry.GetNamespaceProvider("Memory"), upper);
  for (const char* missing : {"MEMORY", "memory ", ""}) {
    vyrtest::CoreLog();
    EXPECT_VYR_STATUS(registry.GetNamespaceProvider(missing), kVYRStatusNotFound);
    EXPECT_EQ(vyrtest::LoggedMessages(),
              std::vector<std::string>{std::string("Failed to find nsp named ") + missing});
  }
}

TEST(NamespaceProviderManagerTest, EnumeratesInByteOrderUntilTheCallbackSaysStop) {
  TNamespaceProviderManager registry;
  for (const char* name : {"smbios", "Zeta", "acpi", "_x", "ACPI"})
    registry.RegisterNamespaceProvider(Provider(name));
  const struct {
    std::size_t limit;  // the callback says stop on this call
    std::vector<std::string> expected;
  } rows[] = {
      {1, {"ACPI"}}, {3, {"ACPI", "Zeta", "_x"}}, {9, {"ACPI", "Zeta", "_x", "acpi", "smbios"}}};
  for (const auto& row : rows) {
    std::vector<std::string> names;
    boost::function<bool(boost::shared_ptr<INamespaceProvider>)> callback =
        [&](boost::shared_ptr<INamespaceProvider> provider) {
          names.push_back(static_cast<TFakeProvider&>(*provider).fName);
          return names.size() < row.limit;
        };
    registry.EnumerateNamespaceProviders(callback);
    EXPECT_EQ(names, row.expected);
  }
}

TEST(NamespaceProviderManagerTest, ProcessRegistryIsOneObjectReachedFromTheRootObject) {
  const boost::shared_ptr<TNamespaceProviderManager> instance =
      TNamespaceProviderManager::GetInstance();
  ASSERT_TRUE(instance);
  EXPECT_EQ(TNamespaceProviderManager::GetInstance(), instance);
  EXPECT_EQ(TRootObject::GetNamespaceProviderManager().get(),
            static_cast<INamespaceProviderManager*>(instance.get()));
}

}  // namespace
