// ItemNamespace.h: the namespace the in-memory benchmarks work on. A class B_Item of 10 properties
// (a reference and a number as keys, two strings, four other numbers, a boolean and a date/time)
// whose instances refer to instances of B_Host.
#ifndef VYRBENCH_ITEMNAMESPACE_H
#define VYRBENCH_ITEMNAMESPACE_H

#include <string>
#include <vector>

#include <vyrcore/vyrcore.h>
#include <vyrcore/vyrmemory.h>

namespace vyrbench {

using namespace NORXVYR20;

inline TCIMValue AddHost(const boost::shared_ptr<ICIMNamespace>& space, const std::string& name);

// An in-memory namespace with both classes committed and the host h1, without items.
inline boost::shared_ptr<ICIMNamespace> MakeItemNamespace(const std::string& name) {
  TCIMContext c;
  boost::shared_ptr<ICIMNamespace> space = TMemoryNamespace::Create(name);
  space->CreateQualifierDecl("Key", TCIMValue(false), 0, 0, c)->Commit();
  boost::shared_ptr<ICIMClass> host = space->CreateClass("B_Host", {}, c);
  host->CreatePropertyDecl("Name", TCIMValue(""), c);
  host->Commit(c);

  boost::shared_ptr<ICIMClass> item = space->CreateClass("B_Item", {}, c);
  TCIMValue nullHost(TCIMValue::TCIMType(TCIMValue::TCIMType::kCIMTypeReference), 0);
  nullHost.SetReferencedClass(host);
  item->CreatePropertyDecl("Host", nullHost, c)
      ->AddQualifier(space->GetQualifierDecl("Key", c), TCIMValue(true))->Commit();
  item->CreatePropertyDecl("Index", TCIMValue(0u), c)
      ->AddQualifier(space->GetQualifierDecl("Key", c), TCIMValue(true))->Commit();
  item->CreatePropertyDecl("Label", TCIMValue(""), c);
  item->CreatePropertyDecl("Path", TCIMValue(""), c);
  item->CreatePropertyDecl("Bytes", TCIMValue(0ul), c);
  item->CreatePropertyDecl("Delta", TCIMValue(0), c);
  item->CreatePropertyDecl("Load", TCIMValue(0.0), c);
  item->CreatePropertyDecl("Enabled", TCIMValue(false), c);
  item->CreatePropertyDecl("Port", TCIMValue(static_cast<unsigned short>(0)), c);
  item->CreatePropertyDecl("Seen", TCIMValue(TCIMDateTime(2024, 5, 6, 7, 8, 9, 0, 0)), c);
  item->Commit(c);
  AddHost(space, "h1");
  return space;
}

// Commits a B_Host named name, and answers a reference value to it.
inline TCIMValue AddHost(const boost::shared_ptr<ICIMNamespace>& space, const std::string& name) {
  TCIMContext c;
  boost::shared_ptr<ICIMInstance> host = space->GetClass("B_Host", c)->CreateInstance(c);
  host->SetPropertyValue("Name", TCIMValue(name), c);
  host->Commit(c);
  TCIMReference path(space, "B_Host.Name=\"" + name + "\"", TCIMContext());
  return TCIMValue(path);
}

// A reference value to the host that MakeItemNamespace commits.
inline TCIMValue FirstHost(const boost::shared_ptr<ICIMNamespace>& space) {
  TCIMReference path(space, "B_Host.Name=\"h1\"", TCIMContext());
  return TCIMValue(path);
}

// The names of B_Item's properties but the first (Host), in declaration order.
inline const std::vector<std::string>& ItemPropertyNames() {
  static const std::vector<std::string> names = {"Index", "Label", "Path", "Bytes", "Delta",
                                                 "Load", "Enabled", "Port", "Seen"};
  return names;
}

// The values of item number i but its host, in the order of ItemPropertyNames.
inline std::vector<TCIMValue> ItemValues(int i) {
  return {TCIMValue(static_cast<unsigned int>(i)),
          TCIMValue("item " + std::to_string(i)),
          TCIMValue("/sys/devices/system/item" + std::to_string(i)),
          TCIMValue(static_cast<unsigned long>(i) * 4096),
          TCIMValue(-i),
          TCIMValue(i * 0.5),
          TCIMValue(i % 2 == 0),
          TCIMValue(static_cast<unsigned short>(i % 65536)),
          TCIMValue(TCIMDateTime(2024, 5, 6, 7, 8, 9, i % 999999, 0))};
}

// Creates, fills and commits one item.
inline void AddItem(ICIMClass& item, const TCIMValue& host, const std::vector<TCIMValue>& values) {
  TCIMContext c;
  boost::shared_ptr<ICIMInstance> instance = item.CreateInstance(c);
  instance->SetPropertyValue("Host", host, c);
  const std::vector<std::string>& names = ItemPropertyNames();
  for (std::size_t p = 0; p < names.size(); ++p) instance->SetPropertyValue(names[p], values[p], c);
  instance->Commit(c);
}

}  // namespace vyrbench

#endif
