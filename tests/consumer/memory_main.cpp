// A consumer of the installed libvyrmemory: a namespace, a class and an instance, read back.
#include <iostream>

#include <vyrcore/vyrcore.h>
#include <vyrcore/vyrmemory.h>

using namespace NORXVYR20;

int main() {
  TCIMContext context;
  boost::shared_ptr<ICIMNamespace> space = TMemoryNamespace::Create("root/consumer");
  boost::shared_ptr<ICIMClass> disk = space->CreateClass("Disk", {}, context);
  disk->CreatePropertyDecl("Name", TCIMValue(""), context);
  disk->CreatePropertyDecl("Blocks", TCIMValue(0u), context);
  disk->Commit(context);
  boost::shared_ptr<ICIMInstance> sda = disk->CreateInstance(context);
  sda->SetPropertyValue("Name", TCIMValue("sda"), context);
  sda->Commit(context);

  TCIMReference path(space, TCIMContext());
  path.SetClassName("Disk");
  path.AddKeyValue("Name", TCIMValue("sda"));
  boost::shared_ptr<ICIMInstance> found =
      space->GetClass("Disk", context)->GetInstance(path, context);
  if (found != sda) return 1;
  if (found->GetProperty("Blocks", context)->GetValue() != TCIMValue(0u)) return 2;

  // The library's exception crosses both module boundaries.
  try {
    space->GetClass("Tape", context);
    return 3;
  } catch (const TVYRException& e) {
    if (e.GetStatusCode() != kVYRStatusNotFound) return 4;
  }
  // A copy of the namespace, and the machine it describes.
  boost::shared_ptr<ICIMNamespace> copy = TMemoryNamespace::Create("root/copy");
  TCIMCopy::CopyClasses(space, copy);
  TCIMReference copiedPath(copy, "Disk.Name=\"sda\"", TCIMContext());
  if (!copy->GetClass("Disk", context)->GetInstance(copiedPath, context)) return 5;
  boost::shared_ptr<ICIMClass> system = copy->CreateClass("ORXSG_ComputerSystem", {}, context);
  system->CreatePropertyDecl("ProductName", TCIMValue(""), context);
  system->Commit(context);
  boost::shared_ptr<ICIMInstance> machine = system->CreateInstance(context);
  machine->SetPropertyValue("ProductName", TCIMValue("Server-[1234ABC]-"), context);
  machine->Commit(context);
  if (TCIMSchemaHelper::GetMTM(copy) != "1234ABC") return 6;
  std::cout << "memory consumer ok: " << path.GetPath() << "\n";
  return 0;
}
