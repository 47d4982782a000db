// Loading real modules: collector plug-ins, providers that register themselves while they load,
// consumers made by their factories, and the messages logged when a load fails.
#include <dlfcn.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <vyrcore/NamespaceProviderManager.h>
#include <vyrcore/OSSpecific.h>
#include <vyrcore/RootObject.h>

#include "support/TestSupport.h"

using namespace NORXVYR20;

namespace {

const std::string kRoot = VYR_TEST_PLUGIN_ROOT;
const std::string kTree = VYR_TEST_PLUGIN_TREE;

// A function of a module this process has already loaded (never loads it), or null.
template <typename Function>
Function Symbol(const std::string& path, const char* name) {
  return reinterpret_cast<Function>(dlsym(dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD), name));
}

boost::shared_ptr<INamespaceProvider> Registered(const std::string& name) {
  return TRootObject::GetNamespaceProviderManager()->GetNamespaceProvider(name);
}

TEST(PluginLoadingTest, LoadsThatFailAreLoggedWithTheLoadersReason) {
  const std::string missingSymbol = ": undefined symbol: vyr_fixture_missing_dependency";
  const struct {
    std::function<void()> load;
    int status;
    std::string message;
  } rows[] = {
      {[] { TOSSpecific::LoadPluginLibrary(kTree + "/broken/libbroken.pi.so"); },
       kVYRStatusFileSystemError,
       "ERROR: Failed to load plugin.  Reason: " + kTree + "/broken/libbroken.pi.so" +
           missingSymbol},
      {[] { TOSSpecific::LoadNSPLibrary("broken"); }, kVYRStatusFileSystemError,
       "Couldn't load NSP: broken (" + kRoot + "/libbroken.nsp.so" + missingSymbol + ")"},
      // Names are not folded: "Echo" is another file.
      {[] { TOSSpecific::LoadNSCLibrary("Echo"); }, kVYRStatusFileSystemError,
       "Couldn't load NSC: Echo (" + kRoot +
           "/libEcho.nsc.so: cannot open shared object file: No such file or directory)"},
      // A consumer library whose factory has another name; it stays loaded.
      {[] { TOSSpecific::LoadNSCLibrary("mute"); }, kVYRStatusNotFound,
       "Couldn't find 'CreateINamespaceConsumer' in " + kRoot + "/libmute.nsc.so"},
  };
  for (const auto& row : rows) {
    vyrtest::CoreLog();
    EXPECT_EQ(vyrtest::StatusThrownBy(row.load), row.status) << row.message;
    EXPECT_EQ(vyrtest::LoggedMessages(), std::vector<std::string>{row.message});
  }
  EXPECT_NE(Symbol<void*>(kRoot + "/libmute.nsc.so", "mute_CreateConsumer"), nullptr);

  // A plug-in that loads hands its handle to the caller.
  void* cpu = TOSSpecific::LoadPluginLibrary(kTree + "/cpu/libcpu.pi.so");
  ASSERT_NE(cpu, nullptr);
  EXPECT_EQ(reinterpret_cast<int (*)()>(dlsym(cpu, "cpu_Collect"))(), 42);
}

TEST(PluginLoadingTest, ProvidersRegisterThemselvesWhileTheyLoadFirstNameWins) {
  TOSSpecific::LoadNSPLibrary("first");
  TOSSpecific::LoadNSPLibrary("second");
  typedef INamespaceProvider* (*TMadeBy)(const char*);
  const auto first = Symbol<TMadeBy>(kRoot + "/libfirst.nsp.so", "fixture_provider");
  const auto second = Symbol<TMadeBy>(kRoot + "/libsecond.nsp.so", "fixture_provider");
  ASSERT_TRUE(first && second);
  // Both libraries registered "twin"; the one loaded first keeps it. "Twin" is another name.
  ASSERT_NE(second("twin"), nullptr);
  EXPECT_EQ(Registered("twin").get(), first("twin"));
  EXPECT_EQ(Registered("Twin").get(), second("Twin"));
}

TEST(PluginLoadingTest, ConsumerFactoryMakesANewConsumerPerCall) {
  std::unique_ptr<INamespaceConsumer> one(TOSSpecific::LoadNSCLibrary("echo"));
  std::unique_ptr<INamespaceConsumer> two(TOSSpecific::LoadNSCLibrary("echo"));
  const auto live = Symbol<int (*)()>(kRoot + "/libecho.nsc.so", "echo_LiveConsumers");
  ASSERT_TRUE(one && two && live);
  EXPECT_NE(two.get(), one.get());
  EXPECT_EQ(live(), 2);
  // The caller owns them; deleting through the interface runs the plug-in's destructor.
  one.reset();
  two.reset();
  EXPECT_EQ(live(), 0);
}

}  // namespace
