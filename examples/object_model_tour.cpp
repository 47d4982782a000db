// object_model_tour: the object model end to end, in an in-memory namespace.
//
// Declares two classes (a disk, and a partition keyed by a reference to its disk and its index),
// creates instances, then does what a consumer of collected data does: it reads an object path
// from text, resolves it to the instance it designates and follows that instance's reference to
// the disk. A path that names nothing, and one the library refuses, show how failures look: a
// status, with the reasons in the log. Exit status 0 when everything was found as expected.
#include <iostream>
#include <string>
#include <utility>
#include <vector>

#include <vyrcore/vyrcore.h>
#include <vyrcore/vyrmemory.h>

using namespace NORXVYR20;

namespace {

typedef boost::shared_ptr<ICIMNamespace> TNamespacePtr;

TCIMContext context;  // every object-model call takes a context; nothing here needs one

// A class with one property per (name, declared value): the declared value's type is the
// property's type and its content the default. A null value declares a property without default.
boost::shared_ptr<ICIMClass> DeclareClass(
    ICIMNamespace& cimNamespace, const std::string& name,
    const std::vector<std::pair<std::string, TCIMValue>>& properties) {
  boost::shared_ptr<ICIMClass> cimClass =
      cimNamespace.CreateClass(name, boost::shared_ptr<ICIMClass>(), context);
  for (const auto& property : properties)
    cimClass->CreatePropertyDecl(property.first, property.second, context)->Commit();
  cimClass->Commit(context);
  return cimClass;
}

// Instances are filled, then committed: only committed instances are found.
void AddDisk(ICIMClass& diskClass, const std::string& id, unsigned long sizeMB) {
  boost::shared_ptr<ICIMInstance> disk = diskClass.CreateInstance(context);
  disk->SetPropertyValue("DeviceID", TCIMValue(id), context);
  disk->SetPropertyValue("SizeMB", TCIMValue(sizeMB), context);
  disk->Commit(context);
}

// The partition's Disk property is a reference value, made from the disk's object path.
void AddPartition(const TNamespacePtr& cimNamespace, const std::string& diskPath,
                  unsigned int index, const std::string& fileSystem) {
  TCIMReference disk(cimNamespace, diskPath, context);
  boost::shared_ptr<ICIMInstance> partition =
      cimNamespace->GetClass("VYR_Partition", context)->CreateInstance(context);
  partition->SetPropertyValue("Disk", TCIMValue(disk), context);
  partition->SetPropertyValue("Index", TCIMValue(index), context);
  partition->SetPropertyValue("FileSystem", TCIMValue(fileSystem), context);
  partition->Commit(context);
}

// Reads a path and resolves it. A path with key bindings designates an instance, so the element
// GetCIMElement answers is cast to ICIMInstance. No instance with those keys: kVYRStatusNotFound.
boost::shared_ptr<ICIMInstance> Resolve(const TNamespacePtr& cimNamespace,
                                        const std::string& path) {
  const TCIMReference reference(cimNamespace, path, context);
  return boost::dynamic_pointer_cast<ICIMInstance>(reference.GetCIMElement());
}

const TCIMValue& ValueOf(ICIMInstance& instance, const std::string& property) {
  return instance.GetProperty(property, context)->GetValue();
}

// What a user needs when the library refuses: the status names the kind of failure, the log
// entries made meanwhile say what and why.
void ShowRefusal(const std::string& path, const TVYRException& e) {
  std::cout << "  " << path << "\n    refused: " << e.what() << "\n";
  for (const ILogger::TLogEntry& entry : TLogger::GetInstance()->GetLog())
    if (entry.fSeverity == ILogger::kLogSeverityError)
      std::cout << "    log: " << entry.fMessage << "\n";
  TLogger::GetInstance()->ClearLog();
}

}  // namespace

int main() {
  TLogger::Initialize();  // the library logs its reasons here before it throws

  const TNamespacePtr cimNamespace = TMemoryNamespace::Create("root/example");
  boost::shared_ptr<ICIMClass> diskClass = DeclareClass(
      *cimNamespace, "VYR_Disk",
      {{"DeviceID", TCIMValue(TCIMValue::TCIMType::kCIMTypeString, 0)},
       {"SizeMB", TCIMValue(TCIMValue::TCIMType::kCIMTypeUInt64, 0)}});
  // A reference property's default is a null reference that names the class it points at.
  TCIMValue diskReference(TCIMValue::TCIMType::kCIMTypeReference, 0);
  diskReference.SetReferencedClass(diskClass);
  DeclareClass(*cimNamespace, "VYR_Partition",
               {{"Disk", diskReference},
                {"Index", TCIMValue(TCIMValue::TCIMType::kCIMTypeUInt32, 0)},
                {"FileSystem", TCIMValue(std::string("unknown"))}});

  AddDisk(*diskClass, "sda", 476940);
  AddDisk(*diskClass, "sdb", 953869);
  // Every key value of a path is quoted, numbers too; a reference key holds a whole path,
  // written inside the quotes as it stands (no escaping).
  AddPartition(cimNamespace, R"(VYR_Disk.DeviceID="sda")", 1, "ext4");
  AddPartition(cimNamespace, R"(VYR_Disk.DeviceID="sda")", 2, "swap");
  AddPartition(cimNamespace, R"(VYR_Disk.DeviceID="sdb")", 1, "xfs");

  const std::string path = R"(VYR_Partition.Disk="VYR_Disk.DeviceID="sdb"",Index="1")";
  std::cout << "Resolving " << path << "\n";
  int failures = 0;
  try {
    const boost::shared_ptr<ICIMInstance> partition = Resolve(cimNamespace, path);
    const std::string fileSystem = ValueOf(*partition, "FileSystem");
    // The reference value read back resolves to the disk instance it names.
    const TCIMReference diskPath = ValueOf(*partition, "Disk");
    const boost::shared_ptr<ICIMInstance> disk =
        boost::dynamic_pointer_cast<ICIMInstance>(diskPath.GetCIMElement());
    const unsigned long sizeMB = ValueOf(*disk, "SizeMB");
    std::cout << "  partition " << static_cast<unsigned int>(ValueOf(*partition, "Index"))
              << " holds " << fileSystem << ", on disk " << diskPath.GetPath() << " of " << sizeMB
              << " MB\n";
    if (fileSystem != "xfs" || sizeMB != 953869) ++failures;
  } catch (const TVYRException& e) {
    ShowRefusal(path, e);
    ++failures;
  }

  const char* const refused[] = {
      R"(VYR_Partition.Disk="VYR_Disk.DeviceID="sdc"",Index="1")",  // no such disk
      "VYR_Partition.Index=1",                                      // a key value without quotes
      R"(VYR_Volume.Index="1")",                                    // no such class
  };
  std::cout << "Paths the library refuses:\n";
  for (const std::string wrong : refused) {
    try {
      Resolve(cimNamespace, wrong);
      std::cout << "  " << wrong << ": accepted, unexpectedly\n";
      ++failures;
    } catch (const TVYRException& e) {
      ShowRefusal(wrong, e);
    }
  }

  delete TLogger::GetInstance();
  return failures == 0 ? 0 : 1;
}
