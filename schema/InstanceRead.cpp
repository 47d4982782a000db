// The reading steps of the identification queries: class, instances, one property's value.
#include "schema/InstanceRead.h"

#include <vyrcore/Status.h>

#include "core/Fail.h"

namespace NORXVYR20 {
namespace detail {

std::vector<boost::shared_ptr<ICIMInstance>> AllInstances(ICIMClass& cimClass,
                                                          const TCIMContext& context) {
  std::vector<boost::shared_ptr<ICIMInstance>> instances;
  boost::function<bool(boost::shared_ptr<ICIMInstance>)> collect =
      TAddToVectorCallback<ICIMInstance>(instances);
  TCIMContext callContext(context);
  cimClass.EnumerateInstances(collect, true, callContext);
  return instances;
}

TCIMValue PropertyValue(ICIMInstance& instance, const std::string& name,
                        const TCIMContext& context) {
  TCIMContext callContext(context);
  return instance.GetProperty(name, callContext)->GetValue();
}

TCIMValue SingleInstanceValue(ICIMNamespace& cimNamespace, const std::string& className,
                              const std::string& property, const TCIMContext& context) {
  TCIMContext callContext(context);
  boost::shared_ptr<ICIMClass> cimClass = cimNamespace.GetClass(className, callContext);
  std::vector<boost::shared_ptr<ICIMInstance>> instances = AllInstances(*cimClass, context);
  if (instances.size() != 1) Fail(kVYRStatusNotFound);
  return PropertyValue(*instances.front(), property, context);
}

}  // namespace detail
}  // namespace NORXVYR20
