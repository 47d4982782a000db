// The registry of namespace providers: first registration wins, byte-wise name order, stopping
// enumerations, logged failed lookups, the process's one instance, and provider lifetime.
#include <cstdlib>
#include <string>
#include <vector>

#include <boost/weak_ptr.hpp>

#include <vyrcore/NamespaceProviderManager.h>
#include <vyrcore/RootObject.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

typedef boost::function<bool(boost::shared_ptr<INamespaceProvider>)> TProviderCallback;

class TFakeProvider : public INamespaceProvider {
 public:
  explicit TFakeProvider(const std::string& name) : fName(name) {}
  const std::string& GetName(std::map<std::string, TCIMValue>& context) override {
    fContextSizeSeen = context.size();
    return fName;
  }
  boost::shared_ptr<ICIMNamespace> GetNamespace(const std::string&,
                                                std::map<std::string, TCIMValue>&) override {
    throw TVYRException(kVYRStatusNotFound);
  }
  std::string fName;
  std::size_t fContextSizeSeen = 99;
};

boost::shared_ptr<TFakeProvider> Provider(const std::string& name) {
  return boost::shared_ptr<TFakeProvider>(new TFakeProvider(name));
}

// The names the registry hands to a callback that stops after `limit` calls (or never).
std::vector<std::string> EnumeratedNames(const INamespaceProviderManager& registry,
                                         std::size_t limit = 1000) {
  std::vector<std::string> names;
  TProviderCallback callback = [&](boost::shared_ptr<INamespaceProvider> provider) {
    names.push_back(static_cast<TFakeProvider&>(*provider).fName);
    return names.size() < limit;
  };
  registry.EnumerateNamespaceProviders(callback);
  return names;
}

TEST(NamespaceProviderManagerTest, FirstRegistrationUnderANameStays) {
  TNamespaceProviderManager registry;
  const auto first = Provider("cim");
  const auto second = Provider("cim");
  registry.RegisterNamespaceProvider(first);
  registry.RegisterNamespaceProvider(second);
  EXPECT_EQ(registry.GetNamespaceProvider("cim"), first);
  EXPECT_EQ(EnumeratedNames(registry), std::vector<std::string>{"cim"});
}

TEST(NamespaceProviderManagerTest, NamesAreExactCaseSensitiveKeys) {
  TNamespaceProviderManager registry;
  const auto lower = Provider("memory");
  const auto upper = Provider("Memory");
  registry.RegisterNamespaceProvider(lower);
  registry.RegisterNamespaceProvider(upper);
  EXPECT_EQ(registry.GetNamespaceProvider("memory"), lower);
  EXPECT_EQ(registry.GetNamespaceProvider("Memory"), upper);
  vyrtest::CoreLog();
  for (const char* missing : {"MEMORY", "memory ", "mem", ""})
    EXPECT_VYR_STATUS(registry.GetNamespaceProvider(missing), kVYRStatusNotFound);
}

TEST(NamespaceProviderManagerTest, EnumeratesInByteOrderAndStopsWhenTheCallbackSaysSo) {
  TNamespaceProviderManager registry;
  for (const char* name : {"smbios", "Zeta", "acpi", "_x", "ACPI", "smbios2"})
    registry.RegisterNamespaceProvider(Provider(name));
  const std::vector<std::string> all = {"ACPI", "Zeta", "_x", "acpi", "smbios", "smbios2"};
  const struct {
    std::size_t limit;
    std::vector<std::string> expected;
  } rows[] = {
      {1000, all},
      {1, {"ACPI"}},
      {3, {"ACPI", "Zeta", "_x"}},
      {6, all},
  };
  for (const auto& row : rows) EXPECT_EQ(EnumeratedNames(registry, row.limit), row.expected);
}

TEST(NamespaceProviderManagerTest, EmptyRegistryNeverCallsBack) {
  TNamespaceProviderManager registry;
  EXPECT_TRUE(EnumeratedNames(registry).empty());
}

TEST(NamespaceProviderManagerTest, AsksForTheNameWithAnEmptyContextAndKeepsACopy) {
  TNamespaceProviderManager registry;
  const auto provider = Provider("before");
  registry.RegisterNamespaceProvider(provider);
  EXPECT_EQ(provider->fContextSizeSeen, 0u);
  // The provider's own name changing later does not move it in the registry.
  provider->fName = "after";
  EXPECT_EQ(registry.GetNamespaceProvider("before"), provider);
  vyrtest::CoreLog();
  EXPECT_VYR_STATUS(registry.GetNamespaceProvider("after"), kVYRStatusNotFound);
}

TEST(NamespaceProviderManagerTest, UnknownNameIsLoggedThenNotFound) {
  TNamespaceProviderManager registry;
  registry.RegisterNamespaceProvider(Provider("memory"));
  const struct {
    const char* name;
    const char* message;
  } rows[] = {
      {"smbios", "Failed to find nsp named smbios"},
      {"", "Failed to find nsp named "},
      {"Memory", "Failed to find nsp named Memory"},
  };
  for (const auto& row : rows) {
    vyrtest::CoreLog();
    EXPECT_VYR_STATUS(registry.GetNamespaceProvider(row.name), kVYRStatusNotFound);
    EXPECT_EQ(vyrtest::LoggedMessages(), std::vector<std::string>{row.message});
    ASSERT_FALSE(TLogger::GetInstance()->GetLog().empty());
    EXPECT_EQ(TLogger::GetInstance()->GetLog().front().fSeverity, ILogger::kLogSeverityError);
  }
}

TEST(NamespaceProviderManagerTest, UnknownNameWithoutALoggerStillThrowsNotFound) {
  // A fresh process, this test binary re-executed, in which nothing has made the logger.
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        if (TRootObject::GetCoreLogger()) std::_Exit(2);
        TNamespaceProviderManager registry;
        try {
          registry.GetNamespaceProvider("smbios");
        } catch (const TVYRException& e) {
          std::_Exit(e.GetStatusCode() == kVYRStatusNotFound ? 0 : 3);
        }
        std::_Exit(4);
      },
      testing::ExitedWithCode(0), "");
}

TEST(NamespaceProviderManagerTest, EmptyProviderFailsTheDereferenceCheck) {
  vyrtest::ScopedEnv assertMode("VYR_BOOST_ASSERT", nullptr);
  vyrtest::CoreLog();
  TNamespaceProviderManager registry;
  EXPECT_VYR_STATUS(registry.RegisterNamespaceProvider(boost::shared_ptr<INamespaceProvider>()),
                    kVYRStatusFail);
  EXPECT_TRUE(EnumeratedNames(registry).empty());
}

TEST(NamespaceProviderManagerTest, ProcessRegistryIsOneObjectReachedFromTheRootObject) {
  const boost::shared_ptr<TNamespaceProviderManager> instance =
      TNamespaceProviderManager::GetInstance();
  ASSERT_TRUE(instance);
  EXPECT_EQ(TNamespaceProviderManager::GetInstance(), instance);
  EXPECT_EQ(TRootObject::GetNamespaceProviderManager().get(),
            static_cast<INamespaceProviderManager*>(instance.get()));

  // What one access point registers, the other finds.
  const auto provider = Provider("registry-test-shared");
  TRootObject::GetNamespaceProviderManager()->RegisterNamespaceProvider(provider);
  EXPECT_EQ(instance->GetNamespaceProvider("registry-test-shared"), provider);
}

TEST(NamespaceProviderManagerTest, HoldsItsProvidersUntilItGoes) {
  boost::weak_ptr<TFakeProvider> kept;
  boost::weak_ptr<TFakeProvider> dropped;
  {
    TNamespaceProviderManager registry;
    {
      const auto first = Provider("same");
      const auto second = Provider("same");
      kept = first;
      dropped = second;
      registry.RegisterNamespaceProvider(first);
      registry.RegisterNamespaceProvider(second);
    }
    EXPECT_FALSE(kept.expired());
    EXPECT_TRUE(dropped.expired());
  }
  EXPECT_TRUE(kept.expired());
}

}  // namespace
