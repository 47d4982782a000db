// The file-name constants of plug-in discovery. They are defined together, here, because their
// order matters: kPluginExtension is built from the two before it, and static objects of one file
// are constructed in the order they are defined (and destroyed in reverse at unload).
#include <vyrcore/OSSpecific.h>

namespace NORXVYR20 {

const std::string TOSSpecific::kDynamicModuleExtension = ".so";
const std::string TOSSpecific::kVYRPluginExtension = "pi";
const std::string TOSSpecific::kPluginExtension =
    "." + TOSSpecific::kVYRPluginExtension + TOSSpecific::kDynamicModuleExtension;
const std::string TOSSpecific::kSpecificationExtension = ".properties.xml";
const std::string TOSSpecific::kFileSeparator = "/";
const std::string kNSPExtension = ".nsp.so";

}  // namespace NORXVYR20
