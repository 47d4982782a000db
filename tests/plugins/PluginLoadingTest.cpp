// Loading real modules: collector plug-ins, providers that register themselves while they load,
// and consumers made by their factories; the messages logged when a load fails.
#include <dlfcn.h>
#include <link.h>

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
const std::string kMissingSymbol = "undefined symbol: vyr_fixture_missing_dependency";

// The handle of a module this process has already loaded, or null: never loads it.
void* AlreadyLoaded(const std::string& path) { return dlopen(path.c_str(), RTLD_NOW | RTLD_NOLOAD); }

template <typename Function>
Function Symbol(void* handle, const char* name) {
  return reinterpret_cast<Function>(dlsym(handle, name));
}

bool StartsWith(const std::string& text, const std::string& prefix) {
  return text.compare(0, prefix.size(), prefix) == 0;
}

std::string OnlyLoggedMessage() {
  const std::vector<std::string> messages = vyrtest::LoggedMessages();
  EXPECT_EQ(messages.size(), 1u);
  return messages.empty() ? std::string() : messages.front();
}

// The file names of the loaded objects whose names contain `name`.
std::vector<std::string> LoadedCopiesOf(const std::string& name) {
  std::pair<std::string, std::vector<std::string>> search(name, {});
  dl_iterate_phdr(
      [](dl_phdr_info* info, std::size_t, void* data) {
        auto* s = static_cast<std::pair<std::string, std::vector<std::string>>*>(data);
        if (info->dlpi_name && std::string(info->dlpi_name).find(s->first) != std::string::npos)
          s->second.push_back(info->dlpi_name);
        return 0;
      },
      &search);
  return search.second;
}

boost::shared_ptr<INamespaceProvider> Registered(const std::string& name) {
  return TRootObject::GetNamespaceProviderManager()->GetNamespaceProvider(name);
}

TEST(PluginLoadingTest, PluginLoadsAndItsHandleIsTheCallersToUse) {
  const std::string path = kTree + "/cpu/libcpu.pi.so";
  void* handle = TOSSpecific::LoadPluginLibrary(path);
  ASSERT_NE(handle, nullptr);
  const auto collect = Symbol<int (*)()>(handle, "cpu_Collect");
  ASSERT_NE(collect, nullptr);
  EXPECT_EQ(collect(), 42);
  EXPECT_EQ(AlreadyLoaded(path), handle);
}

TEST(PluginLoadingTest, PluginThatCannotLoadIsLoggedWithTheLoadersReason) {
  const struct {
    std::string path;
    std::string reason;  // the loader's text
  } rows[] = {
      {kTree + "/broken/libbroken.pi.so", kTree + "/broken/libbroken.pi.so: " + kMissingSymbol},
      {kTree + "/absent/libabsent.pi.so",
       kTree + "/absent/libabsent.pi.so: cannot open shared object file: No such file or directory"},
  };
  for (const auto& row : rows) {
    vyrtest::CoreLog();
    EXPECT_VYR_STATUS(TOSSpecific::LoadPluginLibrary(row.path), kVYRStatusFileSystemError);
    EXPECT_EQ(OnlyLoggedMessage(), "ERROR: Failed to load plugin.  Reason: " + row.reason);
    EXPECT_EQ(AlreadyLoaded(row.path), nullptr);
  }
}

TEST(PluginLoadingTest, ProvidersRegisterThemselvesWhileTheyLoadFirstNameWins) {
  const std::string firstPath = kRoot + "/libfirst.nsp.so";
  const std::string secondPath = kRoot + "/libsecond.nsp.so";
  ASSERT_EQ(AlreadyLoaded(firstPath), nullptr);
  vyrtest::CoreLog();
  EXPECT_VYR_STATUS(Registered("first"), kVYRStatusNotFound);

  TOSSpecific::LoadNSPLibrary("first");
  TOSSpecific::LoadNSPLibrary("second");
  void* first = AlreadyLoaded(firstPath);
  void* second = AlreadyLoaded(secondPath);
  ASSERT_NE(first, nullptr);
  ASSERT_NE(second, nullptr);
  typedef INamespaceProvider* (*TMade)(const char*);
  const auto madeByFirst = Symbol<TMade>(first, "fixture_provider");
  const auto madeBySecond = Symbol<TMade>(second, "fixture_provider");
  ASSERT_TRUE(madeByFirst && madeBySecond);

  // Both libraries registered "twin"; the one loaded first keeps it. "Twin" is another name.
  ASSERT_NE(madeBySecond("twin"), nullptr);
  EXPECT_EQ(Registered("twin").get(), madeByFirst("twin"));
  EXPECT_EQ(Registered("Twin").get(), madeBySecond("Twin"));
  EXPECT_EQ(Registered("first").get(), madeByFirst("first"));
  EXPECT_EQ(Registered("second").get(), madeBySecond("second"));

  // Byte-wise name order, not the order of registration (twin, first, twin, Twin, second).
  std::vector<std::string> names;
  boost::function<bool(boost::shared_ptr<INamespaceProvider>)> collect =
      [&names](boost::shared_ptr<INamespaceProvider> provider) {
        std::map<std::string, TCIMValue> context;
        names.push_back(provider->GetName(context));
        return true;
      };
  TRootObject::GetNamespaceProviderManager()->EnumerateNamespaceProviders(collect);
  std::vector<std::string> ours;
  for (const std::string& name : names)
    if (name == "twin" || name == "Twin" || name == "first" || name == "second")
      ours.push_back(name);
  EXPECT_EQ(ours, (std::vector<std::string>{"Twin", "first", "second", "twin"}));
}

TEST(PluginLoadingTest, MemoryProviderKeepsANamespacePerName) {
  TOSSpecific::LoadNSPLibrary("memory");
  const boost::shared_ptr<INamespaceProvider> memory = Registered("memory");
  ASSERT_TRUE(memory);
  // Loading again runs no initialisation again: still the one provider.
  TOSSpecific::LoadNSPLibrary("memory");
  EXPECT_EQ(Registered("memory"), memory);

  std::map<std::string, TCIMValue> context;
  const boost::shared_ptr<ICIMNamespace> a = memory->GetNamespace("root/a", context);
  ASSERT_TRUE(a);
  EXPECT_EQ(memory->GetNamespace("root/a", context), a);
  const boost::shared_ptr<ICIMNamespace> b = memory->GetNamespace("root/b", context);
  ASSERT_TRUE(b);
  EXPECT_NE(b, a);

  // What is made in one namespace is found there again, and only there.
  const boost::shared_ptr<ICIMClass> made =
      a->CreateClass("VYR_Check", boost::shared_ptr<ICIMClass>(), context);
  made->Commit(context);
  EXPECT_EQ(memory->GetNamespace("root/a", context)->GetClass("VYR_Check", context), made);
  EXPECT_VYR_STATUS(b->GetClass("VYR_Check", context), kVYRStatusNotFound);

  // The provider and libvyrmemory bound to the libvyrcore already loaded: a second copy would
  // bring a second registry.
  EXPECT_EQ(LoadedCopiesOf("libvyrcore.so"), std::vector<std::string>{kRoot + "/libvyrcore.so.2"});
}

TEST(PluginLoadingTest, ProviderThatCannotLoadIsLogged) {
  const struct {
    const char* name;
    std::string message;
  } rows[] = {
      {"broken", "Couldn't load NSP: broken (" + kRoot + "/libbroken.nsp.so: " + kMissingSymbol +
                     ")"},
      {"absent", "Couldn't load NSP: absent (" + kRoot +
                     "/libabsent.nsp.so: cannot open shared object file: No such file or "
                     "directory)"},
      // Names are not trimmed or folded: "First" is another file.
      {"First", "Couldn't load NSP: First (" + kRoot +
                    "/libFirst.nsp.so: cannot open shared object file: No such file or "
                    "directory)"},
  };
  for (const auto& row : rows) {
    vyrtest::CoreLog();
    EXPECT_VYR_STATUS(TOSSpecific::LoadNSPLibrary(row.name), kVYRStatusFileSystemError);
    EXPECT_EQ(OnlyLoggedMessage(), row.message);
  }
}

TEST(PluginLoadingTest, ConsumerFactoryMakesANewConsumerPerCall) {
  std::unique_ptr<INamespaceConsumer> one(TOSSpecific::LoadNSCLibrary("echo"));
  ASSERT_NE(one, nullptr);
  void* echo = AlreadyLoaded(kRoot + "/libecho.nsc.so");
  ASSERT_NE(echo, nullptr);
  const auto live = Symbol<int (*)()>(echo, "echo_LiveConsumers");
  ASSERT_NE(live, nullptr);
  EXPECT_EQ(live(), 1);

  std::unique_ptr<INamespaceConsumer> two(TOSSpecific::LoadNSCLibrary("echo"));
  EXPECT_NE(two.get(), one.get());
  EXPECT_EQ(live(), 2);
  // The caller owns them; deleting through the interface runs the plug-in's destructor.
  one.reset();
  two.reset();
  EXPECT_EQ(live(), 0);
}

TEST(PluginLoadingTest, ConsumerWithoutItsFactoryIsNotFoundAndStaysLoaded) {
  const std::string path = kRoot + "/libmute.nsc.so";
  ASSERT_EQ(AlreadyLoaded(path), nullptr);
  vyrtest::CoreLog();
  EXPECT_VYR_STATUS(TOSSpecific::LoadNSCLibrary("mute"), kVYRStatusNotFound);
  EXPECT_EQ(OnlyLoggedMessage(), "Couldn't find 'CreateINamespaceConsumer' in " + path);
  void* mute = AlreadyLoaded(path);
  ASSERT_NE(mute, nullptr);
  // Its entry point exists under another name: the exact symbol name is what counts.
  EXPECT_NE(dlsym(mute, "mute_CreateConsumer"), nullptr);
}

TEST(PluginLoadingTest, ConsumerThatCannotLoadIsLogged) {
  vyrtest::CoreLog();
  EXPECT_VYR_STATUS(TOSSpecific::LoadNSCLibrary("absent"), kVYRStatusFileSystemError);
  EXPECT_EQ(OnlyLoggedMessage(), "Couldn't load NSC: absent (" + kRoot +
                                     "/libabsent.nsc.so: cannot open shared object file: No such "
                                     "file or directory)");
  // A provider library is not a consumer library, whatever its name says.
  vyrtest::CoreLog();
  EXPECT_VYR_STATUS(TOSSpecific::LoadNSCLibrary("first"), kVYRStatusFileSystemError);
  EXPECT_TRUE(StartsWith(OnlyLoggedMessage(), "Couldn't load NSC: first (" + kRoot +
                                                  "/libfirst.nsc.so: "));
}

TEST(PluginLoadingTest, FailedLoadWithoutALoggerStillThrows) {
  // A fresh process, this test binary re-executed, in which nothing has made the logger.
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_EXIT(
      {
        if (TRootObject::GetCoreLogger()) std::_Exit(2);
        try {
          TOSSpecific::LoadNSPLibrary("broken");
        } catch (const TVYRException& e) {
          std::_Exit(e.GetStatusCode() == kVYRStatusFileSystemError ? 0 : 3);
        }
        std::_Exit(4);
      },
      testing::ExitedWithCode(0), "");
}

}  // namespace
